// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include <gtk/gtk.h>

#include "printing/JobSheets.h"
#include "shells/SheetsLayout.h"
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

  // What is shown, and where, in pixels of the area.
  [[nodiscard]] const SheetsLayout& sheets() const { return layout_; }

 private:
  void paint(cairo_t* context) override;
  void resized() override;
  void restyled() override { layOut(); }
  void pressedAt(double x, double y) override { goTo(layout_.itemAt(x, y)); }
  bool keyPressed(guint key) override;
  void focusChanged(bool hasFocus) override;

  void describe();
  void layOut();
  bool showTooltip(int x, int y, bool byKeyboard, GtkTooltip* tooltip) const;
  void goTo(std::optional<std::size_t> item);
  [[nodiscard]] GdkRectangle placeOf(std::size_t item) const;

  std::function<void(const std::string&)> say_;
  PaintedArea area_;
  GObjectPtr<GtkWidget> scroller_;
  SheetsLayout layout_;
  int width_ = 0;  // of the area when the picture was laid out
  SignalHandlers handlers_;
};

}  // namespace publishing
