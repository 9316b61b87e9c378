// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListWriting.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <glib.h>

namespace publishing {
namespace {

constexpr char kBlank = ' ';
constexpr std::string_view kCharacters = "1234567890-,";

bool isIn(gunichar character, std::initializer_list<gunichar> characters) {
  return std::find(characters.begin(), characters.end(), character) != characters.end();
}

// The character of a page list, or a blank, that it stands for; 0 for none.
char meaningOf(gunichar character) {
  constexpr gunichar kMinus = 0x2212;
  constexpr gunichar kFullWidthTilde = 0xFF5E;  // joins ranges in Chinese and Japanese
  // The semicolon and the commas of other scripts: Arabic, Chinese and Japanese, full and half
  // width.
  const auto separators = {gunichar{','},    gunichar{';'},    gunichar{0x060C}, gunichar{0x061B},
                           gunichar{0x3001}, gunichar{0xFF0C}, gunichar{0xFF1B}, gunichar{0xFF64}};
  if (isIn(character, separators)) return ',';
  if (isIn(character, {kMinus, kFullWidthTilde})) return '-';
  if (g_unichar_isspace(character)) return kBlank;
  switch (g_unichar_type(character)) {
    case G_UNICODE_DASH_PUNCTUATION:
      return '-';
    case G_UNICODE_DECIMAL_NUMBER:
      return static_cast<char>('0' + g_unichar_digit_value(character));
    case G_UNICODE_FORMAT:
      return kBlank;  // nothing to be seen, such as a mark of the writing direction
    default:
      return 0;
  }
}

// Blanks separate two pages, but say nothing beside a comma or a hyphen.
std::string withoutBlanks(std::string_view text) {
  const auto isSeparator = [](char character) { return character == ',' || character == '-'; };
  std::string list;
  for (std::size_t place = 0; place < text.size();) {
    if (text[place] != kBlank) {
      list += text[place++];
      continue;
    }
    place = std::min(text.find_first_not_of(kBlank, place), text.size());
    const bool isBeforeSeparator = place < text.size() && isSeparator(text[place]);
    if (!list.empty() && !isSeparator(list.back()) && !isBeforeSeparator) list += ',';
  }
  return list;
}

// The first characters of the text that no page list has.
std::string foreignCharacters(const std::string& text) {
  const std::size_t first = std::min(text.find_first_not_of(kCharacters), text.size());
  return text.substr(first, text.find_first_of(kCharacters, first) - first);
}

}  // namespace

std::string writtenAsPageList(const std::string& text) {
  if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) == 0) return text;
  // A line that was copied as a whole ends with its end.
  const std::size_t end = text.find_last_not_of("\r\n");
  std::string meant;
  for (const char* next = text.c_str(); *next != '\0'; next = g_utf8_next_char(next)) {
    const auto place = static_cast<std::size_t>(next - text.c_str());
    if (end == std::string::npos || place > end) break;
    const char meaning = meaningOf(g_utf8_get_char(next));
    if (meaning != 0) {
      meant += meaning;
    } else {
      meant.append(next, static_cast<std::size_t>(g_utf8_next_char(next) - next));
    }
  }
  return withoutBlanks(meant);
}

PageListWriting::PageListWriting(std::function<void(const std::string&)> refused)
    : refused_(std::move(refused)) {
  formatter_.allowsonlyNumericsAndSpecialCharacters(true);
}

bool PageListWriting::isPartialStringValid(const std::string& partialString,
                                           std::string& newEditingString) const {
  const std::string written = writtenAsPageList(partialString);
  if (formatter_.isPartialStringValid(written, newEditingString)) return true;
  if (refused_) refused_(foreignCharacters(written));
  return false;
}

}  // namespace publishing
