// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QLineEdit>

#include "shells/FieldNote.h"

namespace publishing {

// A note in a label below a line edit, and a mark in the edit for those who do not look there. Text
// that a user leaves unfinished is marked as a fault. Both widgets must outlive this object.
class QtFieldNote {
 public:
  QtFieldNote(QLineEdit* field, QLabel* label);

  void show(const FieldNote& note);

 private:
  void mark();

  QLineEdit* field_;
  QLabel* label_;
  QAction* icon_ = nullptr;  // none while there is nothing to mark
  FieldNote::Kind kind_ = FieldNote::Kind::Hint;
  QObject receiver_;
};

}  // namespace publishing
