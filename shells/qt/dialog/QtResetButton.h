// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QPushButton>

#include "shells/DialogHost.h"

namespace publishing {

// The button in the panel's tab that switches everything off and forgets what is remembered, and
// then undoes that.
class QtResetButton {
 public:
  // `host` must outlive this object.
  explicit QtResetButton(DialogHost& host) : host_(host) {}

  // Makes the button, which is the parent's; to be called once at most.
  QWidget* makeButton(QWidget* parent);

  // Says what the button does now.
  void update();

 private:
  void press();

  DialogHost& host_;
  QPointer<QPushButton> button_;
};

}  // namespace publishing
