// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCheckBox>
#include <QPointer>

#include "shells/DialogHost.h"

namespace publishing {

// The check box in the panel's tab that says whether the choices are remembered for the printer.
class QtRememberBox {
 public:
  // `host` must outlive this object.
  explicit QtRememberBox(DialogHost& host) : host_(host) {}

  // Makes the box, which is the parent's; to be called once at most.
  QWidget* makeBox(QWidget* parent);

  // Shows what holds for the printer that is selected now.
  void update();

 private:
  DialogHost& host_;
  QPointer<QCheckBox> box_;
};

}  // namespace publishing
