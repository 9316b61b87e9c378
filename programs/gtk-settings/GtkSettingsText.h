// SPDX-License-Identifier: Apache-2.0
// The text of a settings.ini of GTK, edited without touching a byte that others wrote.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace publishing {

// GTK loads the print backends that the entry "gtk-print-backends" of the group [Settings] lists,
// separated by commas. Ours is "publishing". The text is bytes in any encoding that keeps ASCII,
// with LF or CRLF line ends.
//
// An entry that is there gets ",publishing" at its end. Where there is none, a new one follows a
// comment that says who wrote it and what, so that disable() knows it again:
//
//     # Entry added by "publishing extension enable": gtk-print-backends=file,cups,publishing
//     gtk-print-backends=file,cups,publishing
class GtkSettingsText {
 public:
  // The most that enable() had to make for its entry.
  enum class Made { Entry, Group, File, Folder };

  explicit GtkSettingsText(std::string text) : text_(std::move(text)) {}

  [[nodiscard]] const std::string& text() const { return text_; }

  // Why GTK would not read the text, or its list of backends; nothing when it would.
  [[nodiscard]] std::optional<std::string> fault() const;

  // The list that counts, as written: of several the last one. Nothing when there is none.
  [[nodiscard]] std::optional<std::string> backends() const;

  // Makes the list hold "publishing". A text without a list gets one that begins with `inherited`,
  // the list that counts without this text. `made` is File or Folder when the text is that of a
  // file that is not there yet.
  void enable(const std::string& inherited, Made made = Made::Group);

  // Takes back what enable() wrote; of a list that others changed since, "publishing" alone.
  // Answers what enable() had made: a File whose text is empty now, and its Folder, are to be
  // removed.
  Made disable();

 private:
  void eraseLines(std::size_t first, std::size_t last);
  Made removeOwnEntry(std::size_t mark);

  std::string text_;
};

// Whether GTK finds "publishing" in a list of print backends: names are separated by commas, blanks
// around them do not count.
bool listsPublishing(std::string_view backends);

// The list with "publishing" at its end, unless it holds it already.
std::string withPublishing(std::string_view backends);

}  // namespace publishing
