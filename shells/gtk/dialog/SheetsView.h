// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include <gtk/gtk.h>

#include "printing/JobSheets.h"
#include "sheets/SheetPicture.h"
#include "shells/gtk/SignalHandlers.h"
#include "shells/gtk/dialog/PaintedArea.h"

namespace publishing {

// The picture of a job's sheets in a window: in as many rows as it takes, scrolled when there is
// little room, mirrored where texts run from right to left. Pointing at a sheet, or going to it
// with the arrow keys, says it in words.
class SheetsView final : private PaintedArea::Owner {
 public:
  // `say` gets the words of the sheet that the keyboard is on; an empty text when it left.
  explicit SheetsView(std::function<void(const std::string& words)> say);
  SheetsView(const SheetsView&) = delete;
  SheetsView& operator=(const SheetsView&) = delete;
  ~SheetsView() = default;

  // To be put into a window.
  [[nodiscard]] GtkWidget* widget() const { return scroller_.get(); }

  // The part that is painted and has the keyboard's focus.
  [[nodiscard]] GtkWidget* area() const { return area_.widget(); }

  // Shows these sheets at once; to those who do not see the picture, it says them in a sentence.
  void show(JobSheets job);

  // What is shown; places are in units, of which scale() screen pixels are one.
  [[nodiscard]] const SheetPicture& picture() const { return picture_; }
  [[nodiscard]] double scale() const { return scale_; }

  // The item at that place of the area, in screen pixels; nothing between the items.
  [[nodiscard]] std::optional<std::size_t> itemAt(double x, double y) const;

  // The item that the keyboard is on.
  [[nodiscard]] std::optional<std::size_t> current() const { return current_; }

 private:
  void paint(cairo_t* context) override;
  void resized() override;
  void restyled() override { layOut(); }
  void pressedAt(double x, double y) override { goTo(itemAt(x, y)); }
  bool keyPressed(guint key) override;
  void focusChanged(bool hasFocus) override;

  void describe();
  void layOut();
  [[nodiscard]] double roomFor(double fontScale) const;
  void fitScroller(double room);
  bool showTooltip(int x, int y, bool byKeyboard, GtkTooltip* tooltip) const;
  void goTo(std::optional<std::size_t> item);
  [[nodiscard]] GdkRectangle placeOf(std::size_t item) const;
  [[nodiscard]] bool isRightToLeft() const;

  std::function<void(const std::string&)> say_;
  PaintedArea area_;
  GObjectPtr<GtkWidget> scroller_;
  JobSheets job_;
  SheetPicture picture_;
  double scale_ = 1;
  int width_ = 0;  // of the area when the picture was laid out
  std::optional<std::size_t> current_;
  SignalHandlers handlers_;
};

}  // namespace publishing
