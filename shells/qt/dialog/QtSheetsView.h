// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <functional>
#include <string>

#include "shells/SheetsLayout.h"

namespace publishing {

// The picture of a job's sheets in a window: in as many rows as it takes, scrolled when there is
// little room, mirrored where texts run from right to left. Pointing at a sheet, or going to it
// with the arrow keys, says it in words.
class QtSheetsView final : public QScrollArea {
 public:
  // `say` gets the words of the sheet that the keyboard is on; an empty text when it left.
  QtSheetsView(QWidget* parent, std::function<void(const std::string& words)> say);
  ~QtSheetsView() override;

  // Shows these sheets at once; to those who do not see the picture, it says them in a sentence.
  void showSheets(JobSheets job);

  [[nodiscard]] const SheetsLayout& sheets() const { return layout_; }

  // The part that is painted and has the keyboard's focus: a label, which is an image to an
  // assistive technology.
  [[nodiscard]] QLabel* area() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  class Area;

  void describe();
  void layOut();
  void goTo(std::optional<std::size_t> item);

  std::function<void(const std::string&)> say_;
  SheetsLayout layout_;
  Area* area_;
};

}  // namespace publishing
