// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>
#include <memory>
#include <optional>
#include <string>

#include "shells/qt/QtControls.h"

namespace publishing {

// On a line edit. Each edit of the user is shown to the formatter before anybody else hears of it;
// a refused one is taken back as a whole, whatever was selected before it.
class QtTextField final : public QtControl<TextField> {
 public:
  explicit QtTextField(QLineEdit* field);

  [[nodiscard]] std::optional<std::string> stringValue() const override;
  void setStringValue(const std::string& value) override;
  void setFormatter(std::shared_ptr<const Formatter> formatter) override;

  // Puts the keyboard on the field and selects `length` of its characters from `first` on.
  void select(std::size_t first, std::size_t length);

 private:
  void edited(const QString& text);
  // Shows the text without asking the formatter.
  void show(const QString& text, int cursor);

  QLineEdit* field_;
  std::shared_ptr<const Formatter> formatter_;

  // The field before the present edit.
  QString before_;
  int cursorBefore_ = 0;

  // The text set last from code, and how the field shows it: it holds valid UTF-16 only.
  std::string value_;
  QString shownValue_;
};

}  // namespace publishing
