// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "printing/JobSheets.h"
#include "sheets/SheetPicture.h"

namespace publishing {

// The picture of a job's sheets in a window of any toolkit: how large it is painted in the room
// that there is, where its items are, and which of them the keyboard is on. Lengths are in the
// toolkit's pixels.
class SheetsLayout {
 public:
  // Where the picture is to be painted.
  struct Room {
    double width = 0;
    double height = 0;
    double fontScale = 1;  // as textScaleOf()
    bool isRightToLeft = false;
  };

  struct Place {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
  };

  // How much larger sheets are than usual for texts of this height.
  static double textScaleOf(double fontPixels);

  // How high the picture may be on a screen of that height without being scrolled; `others` is
  // what the rest of the dialog takes with usual texts.
  static double heightOn(double screenHeight, double others, double fontScale);

  // Other sheets, which are to be laid out next.
  void show(JobSheets job);

  // Sheets are smaller when they would not all be seen otherwise; what has no room then is scrolled
  // or left out.
  void layOut(const Room& room);

  // Empty before there are sheets.
  [[nodiscard]] const SheetPicture& picture() const { return picture_; }

  // Pixels for one unit of the picture, and where it begins.
  [[nodiscard]] double scale() const { return scale_; }
  [[nodiscard]] double left() const;
  [[nodiscard]] double height() const { return picture_.height * scale_; }

  [[nodiscard]] Place placeOf(std::size_t item) const;

  // Nothing between the items.
  [[nodiscard]] std::optional<std::size_t> itemAt(double x, double y) const;

  // What an item, and the whole picture, says in words.
  [[nodiscard]] std::string wordsOf(std::size_t item) const;
  [[nodiscard]] std::string sentence() const;

  // The item that the keyboard is on. goTo() leaves it when there is no such item.
  [[nodiscard]] std::optional<std::size_t> current() const { return current_; }
  bool goTo(std::optional<std::size_t> item);

  // The item that a key leads to; nothing without items.
  enum class Key { Home, End, Left, Right };
  [[nodiscard]] std::optional<std::size_t> itemBy(Key key) const;

 private:
  std::optional<JobSheets> job_;
  SheetPicture picture_;
  Room room_;
  double scale_ = 1;
  std::optional<std::size_t> current_;
};

}  // namespace publishing
