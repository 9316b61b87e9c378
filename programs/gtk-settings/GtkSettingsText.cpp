// SPDX-License-Identifier: Apache-2.0
#include "programs/gtk-settings/GtkSettingsText.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include <glib.h>

#include "base/Translation.h"
#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

constexpr std::string_view kBackend = PUBLISHING_BACKEND;
constexpr std::string_view kHeader = "[Settings]";
constexpr std::string_view kKey = GTK_BACKENDS_SETTING;
constexpr std::string_view kBlanks = " \t\n\v\f\r";

using Made = GtkSettingsText::Made;

// The comments that enable() writes, by what it made; the entry follows. They must never change:
// files hold them.
constexpr std::array<std::string_view, 4> kMarks = {
    "# Entry added by \"publishing extension enable\": ",
    "# Group added by \"publishing extension enable\": ",
    "# File written by \"publishing extension enable\": ",
    "# File and folder made by \"publishing extension enable\": "};

struct Line {
  std::size_t begin;  // of its characters
  std::size_t end;    // of its characters, where its line end begins
  std::size_t next;   // where the next line begins
};

using Lines = std::vector<Line>;

struct Range {
  std::size_t begin;
  std::size_t end;
};

struct Entry {
  std::size_t line;
  Range value;  // without the blanks before it
};

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

Lines linesOf(std::string_view text) {
  Lines lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t feed = text.find('\n', begin);
    if (feed == std::string_view::npos) {
      lines.push_back({begin, text.size(), text.size()});
      break;
    }
    const bool carriageReturn = feed > begin && text[feed - 1] == '\r';
    lines.push_back({begin, feed - (carriageReturn ? 1 : 0), feed + 1});
    begin = feed + 1;
  }
  return lines;
}

std::string_view contentOf(std::string_view text, const Line& line) {
  return text.substr(line.begin, line.end - line.begin);
}

bool isHeader(std::string_view content) {
  content = trimmed(content);
  return content.starts_with('[') && content.ends_with(']');
}

// GTK takes "_" for "-" in the names of settings.
bool isKey(std::string_view name) {
  return std::equal(name.begin(), name.end(), kKey.begin(), kKey.end(), [](char given, char own) {
    return given == own || (given == '_' && own == '-');
  });
}

std::optional<std::size_t> firstSettings(std::string_view text, const Lines& lines) {
  const auto header = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
    return trimmed(contentOf(text, line)) == kHeader;
  });
  if (header == lines.end()) return std::nullopt;
  return static_cast<std::size_t>(header - lines.begin());
}

// GTK reads all groups [Settings] as one, and the last entry wins.
std::optional<Entry> lastEntry(std::string_view text) {
  const Lines lines = linesOf(text);
  std::optional<Entry> last;
  bool inSettings = false;
  for (std::size_t number = 0; number < lines.size(); ++number) {
    const std::string_view content = contentOf(text, lines[number]);
    if (isHeader(content)) inSettings = trimmed(content) == kHeader;
    const std::size_t equals = content.find('=');
    if (!inSettings || equals == std::string_view::npos) continue;
    if (!isKey(trimmed(content.substr(0, equals)))) continue;
    const std::size_t value =
        std::min(content.find_first_not_of(kBlanks, equals + 1), content.size());
    last = {number, {lines[number].begin + value, lines[number].end}};
  }
  return last;
}

// Where "publishing" and one comma stand in the list.
std::optional<Range> placeInList(std::string_view list) {
  for (std::size_t begin = 0; begin <= list.size();) {
    const std::size_t comma = std::min(list.find(',', begin), list.size());
    const std::string_view name = list.substr(begin, comma - begin);
    if (trimmed(name) == kBackend) {
      const std::size_t place = begin + name.find(kBackend);
      if (begin > 0) return Range{begin - 1, place + kBackend.size()};
      return Range{place, std::min(comma + 1, list.size())};
    }
    begin = comma + 1;
  }
  return std::nullopt;
}

std::optional<Made> madeOfMark(std::string_view content) {
  for (std::size_t number = 0; number < kMarks.size(); ++number) {
    if (content.starts_with(kMarks.at(number))) return static_cast<Made>(number);
  }
  return std::nullopt;
}

std::string_view entryOfMark(std::string_view content, Made made) {
  return content.substr(kMarks.at(static_cast<std::size_t>(made)).size());
}

}  // namespace

bool listsPublishing(std::string_view backends) {
  return placeInList(backends).has_value();
}

std::string withPublishing(std::string_view backends) {
  std::string list(backends);
  if (listsPublishing(list)) return list;
  return list.append(trimmed(list).empty() ? "" : ",").append(kBackend);
}

std::optional<std::string> GtkSettingsText::fault() const {
  const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> file(g_key_file_new(),
                                                                    g_key_file_unref);
  GError* failure = nullptr;
  g_key_file_load_from_data(file.get(), text_.data(), text_.size(), G_KEY_FILE_NONE, &failure);
  if (const auto entry = lastEntry(text_); failure == nullptr && entry) {
    const std::string_view content = contentOf(text_, linesOf(text_)[entry->line]);
    const std::string key(trimmed(content.substr(0, content.find('='))));
    g_free(g_key_file_get_string(file.get(), "Settings", key.c_str(), &failure));
  }
  if (failure == nullptr) return std::nullopt;
  std::string reason = shown(failure->message);
  g_error_free(failure);
  return reason;
}

std::optional<std::string> GtkSettingsText::backends() const {
  const auto entry = lastEntry(text_);
  if (!entry) return std::nullopt;
  return text_.substr(entry->value.begin, entry->value.end - entry->value.begin);
}

void GtkSettingsText::enable(const std::string& inherited, Made made) {
  if (const auto entry = lastEntry(text_)) {
    const Range value = entry->value;
    text_.replace(value.begin, value.end - value.begin, withPublishing(*backends()));
    return;
  }
  const Lines lines = linesOf(text_);
  const auto header = firstSettings(text_, lines);
  if (header) made = Made::Entry;
  const std::string lineEnd =
      lines.empty() || lines.front().end == lines.front().next
          ? "\n"
          : text_.substr(lines.front().end, lines.front().next - lines.front().end);
  const std::string entry = std::string(kKey) + "=" + withPublishing(trimmed(inherited));
  std::string added = std::string(kMarks.at(static_cast<std::size_t>(made))) + entry + lineEnd;
  if (!header) added += std::string(kHeader) + lineEnd;
  added += entry;
  // A text whose last line has no end keeps that trait.
  const std::size_t place = header ? lines[*header].next : text_.size();
  const bool unfinished = place > 0 && text_[place - 1] != '\n';
  text_.insert(place, unfinished ? lineEnd + added : added + lineEnd);
}

void GtkSettingsText::eraseLines(std::size_t first, std::size_t last) {
  const Lines lines = linesOf(text_);
  Range range = {lines[first].begin, lines[last].next};
  const bool unfinished = range.end == text_.size() && lines[last].end == lines[last].next;
  if (unfinished && first > 0) range.begin = lines[first - 1].end;
  text_.erase(range.begin, range.end - range.begin);
}

Made GtkSettingsText::removeOwnEntry(std::size_t mark) {
  const Lines lines = linesOf(text_);
  const auto content = [&](std::size_t line) {
    return line < lines.size() ? contentOf(text_, lines[line]) : std::string_view();
  };
  const Made made = *madeOfMark(content(mark));
  const std::size_t entry = mark + (made == Made::Entry ? 1 : 2);
  const bool asWritten = content(entry) == entryOfMark(content(mark), made) &&
                         (made == Made::Entry || content(mark + 1) == kHeader);
  std::size_t next = entry + 1;
  while (next < lines.size() && trimmed(content(next)).empty())
    ++next;
  const bool headerIsUsed = made != Made::Entry && next < lines.size() && !isHeader(content(next));
  if (asWritten && !headerIsUsed) {
    eraseLines(mark, entry);
  } else {
    if (asWritten) eraseLines(entry, entry);
    eraseLines(mark, mark);
  }
  return made;
}

Made GtkSettingsText::disable() {
  Made made = Made::Group;
  for (std::size_t line = linesOf(text_).size(); line-- > 0;) {
    if (madeOfMark(contentOf(text_, linesOf(text_)[line]))) made = removeOwnEntry(line);
  }
  for (auto entry = lastEntry(text_); entry; entry = lastEntry(text_)) {
    const auto place = placeInList(*backends());
    if (!place) break;
    text_.erase(entry->value.begin + place->begin, place->end - place->begin);
  }
  return made;
}

}  // namespace publishing
