// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

#include "shells/DialogHost.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// The button in the panel's tab that switches everything off and forgets what is remembered, and
// then undoes that.
class ResetButton {
 public:
  // `host` must outlive this object.
  explicit ResetButton(DialogHost& host) : host_(host) {}

  // Makes the button; to be called once at most.
  GtkWidget* makeButton();

  // Says what the button does now.
  void update();

 private:
  void press();

  DialogHost& host_;
  GObjectPtr<GtkWidget> button_;
  SignalHandlers handlers_;
};

}  // namespace publishing
