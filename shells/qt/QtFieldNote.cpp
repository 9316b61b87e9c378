// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtFieldNote.h"

#include <QAction>
#include <QApplication>
#include <QStyle>
#include <optional>

#include "shells/Guarded.h"
#include "shells/qt/QtText.h"

namespace publishing {
namespace {

std::optional<QStyle::StandardPixmap> iconOf(FieldNote::Kind kind) {
  switch (kind) {
    case FieldNote::Kind::Fault:
      return QStyle::SP_MessageBoxCritical;
    case FieldNote::Kind::Remark:
      return QStyle::SP_MessageBoxWarning;
    default:
      return std::nullopt;
  }
}

}  // namespace

QtFieldNote::QtFieldNote(QLineEdit* field, QLabel* label) : field_(field), label_(label) {
  QObject::connect(qApp, &QApplication::focusChanged, &receiver_, [this](QWidget* left) {
    guarded([&] {
      if (kind_ != FieldNote::Kind::Unfinished || left != field_) return;
      kind_ = FieldNote::Kind::Fault;
      mark();
    });
  });
}

void QtFieldNote::show(const FieldNote& note) {
  label_->setText(shownText(note.text));
  if (note.kind == kind_) return;
  kind_ = note.kind;
  mark();
}

void QtFieldNote::mark() {
  const bool isQuiet = kind_ == FieldNote::Kind::Hint || kind_ == FieldNote::Kind::Unfinished;
  label_->setForegroundRole(isQuiet ? QPalette::PlaceholderText : QPalette::WindowText);
  delete icon_;
  icon_ = nullptr;
  const auto icon = iconOf(kind_);
  if (!icon) return;
  icon_ = field_->addAction(field_->style()->standardIcon(*icon), QLineEdit::TrailingPosition);
}

}  // namespace publishing
