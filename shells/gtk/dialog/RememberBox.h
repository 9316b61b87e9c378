// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

#include "shells/DialogHost.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// The check box in the panel's tab that says whether the choices are remembered for the printer.
class RememberBox {
 public:
  // `host` must outlive this object.
  explicit RememberBox(DialogHost& host) : host_(host) {}

  // Makes the box; to be called once at most.
  GtkWidget* makeBox();

  // Shows what holds for the printer that is selected now.
  void update();

 private:
  DialogHost& host_;
  GObjectPtr<GtkWidget> box_;
  SignalHandlers handlers_;
};

}  // namespace publishing
