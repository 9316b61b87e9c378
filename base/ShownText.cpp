// SPDX-License-Identifier: Apache-2.0
#include "base/ShownText.h"

#include <algorithm>
#include <array>

#include <glib.h>

#include "base/GlibHandles.h"

namespace publishing {
namespace {

constexpr gunichar kZeroWidthNonJoiner = 0x200C;
constexpr gunichar kZeroWidthJoiner = 0x200D;

bool isUnfit(gunichar character) {
  switch (g_unichar_type(character)) {
    case G_UNICODE_CONTROL:
    case G_UNICODE_LINE_SEPARATOR:
    case G_UNICODE_PARAGRAPH_SEPARATOR:
      return true;
    case G_UNICODE_FORMAT:  // the joiners are letters' business in several scripts
      return character != kZeroWidthNonJoiner && character != kZeroWidthJoiner;
    default:
      return false;
  }
}

// `valid` is valid UTF-8; `replace` answers what comes in the place of an unfit character.
template <class Replace>
std::string replaced(const char* valid, const Replace& replace) {
  std::string text;
  for (const char* place = valid; *place != '\0';) {
    const char* next = g_utf8_next_char(place);
    const gunichar character = g_utf8_get_char(place);
    if (isUnfit(character)) {
      text += replace(character);
    } else {
      text.append(place, next);
    }
    place = next;
  }
  return text;
}

std::string escaped(gunichar character) {
  std::array<char, 8> code{};
  const auto unit = [&code](gunichar value) {
    g_snprintf(code.data(), code.size(), "\\u%04x", value);
    return std::string(code.data());
  };
  constexpr gunichar kFirstOfTwoUnits = 0x10000;
  if (character < kFirstOfTwoUnits) return unit(character);
  character -= kFirstOfTwoUnits;
  return unit(0xD800 + (character >> 10)) + unit(0xDC00 + (character & 0x3FF));
}

}  // namespace

std::string shown(const std::string& bytes) {
  constexpr std::size_t kLongest = 200;
  const GlibText valid(
      g_utf8_make_valid(bytes.data(), static_cast<gssize>(std::min(bytes.size(), kLongest))));
  std::string text = replaced(valid.get(), [](gunichar) { return " "; });
  if (bytes.size() > kLongest) text += "...";
  return text;
}

std::string shownLines(const std::string& text) {
  const GlibText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  return replaced(valid.get(), [](gunichar character) { return character == '\n' ? "\n" : " "; });
}

std::string shownJson(const std::string& json) {
  return replaced(json.c_str(), escaped);
}

}  // namespace publishing
