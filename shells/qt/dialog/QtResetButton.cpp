// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtResetButton.h"

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/qt/QtText.h"
#include "shells/qt/dialog/QtPrintQuestions.h"

namespace publishing {

QWidget* QtResetButton::makeButton(QWidget* parent) {
  button_ = new QPushButton(parent);
  button_->setObjectName("Reset");
  button_->setAutoDefault(false);
  QObject::connect(button_, &QPushButton::clicked, button_,
                   [this] { guarded([this] { press(); }); });
  update();
  return button_;
}

void QtResetButton::update() {
  if (button_ == nullptr) return;
  const bool undoes = host_.canUndoReset();
  button_->setText(withMnemonic(translated(undoes ? N_("_Undo Reset") : N_("_Reset"))));
  button_->setToolTip(shownTooltip(translated(
      undoes
          ? N_("Bring back the covers and inserts, and what was remembered")
          : N_("Switch off covers and inserts, and forget what is remembered for this printer"))));
}

void QtResetButton::press() {
  const std::string problem = host_.canUndoReset() ? host_.undoReset() : host_.reset();
  update();
  if (!problem.empty()) tellProblem(button_->window(), problem);
}

}  // namespace publishing
