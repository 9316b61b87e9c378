// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtRememberBox.h"

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/HostMessages.h"
#include "shells/qt/QtText.h"

namespace publishing {

QWidget* QtRememberBox::makeBox(QWidget* parent) {
  box_ = new QCheckBox(withMnemonic(translated(kRememberChoices)), parent);
  box_->setObjectName("Remember");
  // Not said of changes from code.
  QObject::connect(box_, &QCheckBox::clicked, box_,
                   [this](bool on) { guarded([&] { host_.setRemembering(on); }); });
  update();
  return box_;
}

void QtRememberBox::update() {
  if (box_ == nullptr) return;
  const DialogHost::Remembering remembering = host_.remembering();
  box_->setChecked(remembering.isOn);
  box_->setEnabled(remembering.against.empty());
  box_->setToolTip(
      shownTooltip(remembering.against.empty() ? translated(kRememberHint) : remembering.against));
}

}  // namespace publishing
