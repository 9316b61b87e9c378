// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtTextField.h"

#include <algorithm>
#include <utility>

#include "shells/qt/QtText.h"

namespace publishing {

QtTextField::QtTextField(QLineEdit* field) : QtControl(field), field_(field) {
  // What accessibility tools write is changed, but not edited.
  QObject::connect(field, &QLineEdit::textChanged, receiver(), [this](const QString& text) {
    if (!isOwn()) guarded([&] { edited(text); });
  });
  // Comes after "textChanged".
  QObject::connect(field, &QLineEdit::cursorPositionChanged, receiver(),
                   [this](int, int now) { cursorBefore_ = now; });
}

std::optional<std::string> QtTextField::stringValue() const {
  const QString shown = field_->text();
  return shown == shownValue_ ? value_ : shown.toStdString();
}

void QtTextField::setStringValue(const std::string& value) {
  const Own own(*this);
  const QString text = shownText(value);
  if (text != field_->text()) field_->setText(text);
  value_ = value;
  shownValue_ = before_ = field_->text();
}

void QtTextField::setFormatter(std::shared_ptr<const Formatter> formatter) {
  formatter_ = std::move(formatter);
}

void QtTextField::select(std::size_t first, std::size_t length) {
  field_->setFocus();
  field_->setSelection(static_cast<int>(first), static_cast<int>(length));
}

void QtTextField::edited(const QString& text) {
  if (formatter_ != nullptr) {
    const std::string partial = text.toStdString();
    std::string corrected = partial;
    if (!formatter_->isPartialStringValid(partial, corrected)) return show(before_, cursorBefore_);
    if (corrected != partial) {
      const QString correctedText = shownText(corrected);
      const auto behind = text.size() - field_->cursorPosition();
      show(correctedText,
           static_cast<int>(std::max(correctedText.size() - behind, decltype(behind){0})));
    }
  }
  before_ = field_->text();
  tellUserChanged();
}

void QtTextField::show(const QString& text, int cursor) {
  const Own own(*this);
  field_->setText(text);
  field_->setCursorPosition(cursor);
}

}  // namespace publishing
