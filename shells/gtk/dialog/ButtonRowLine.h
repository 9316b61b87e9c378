// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

// A line of text beside the buttons of a dialog, where it is seen whichever tab is in front and
// takes no room from anything: it ends with "…" where the row is full. A dialog whose buttons are
// in its title bar has no such line.
class ButtonRowLine {
 public:
  // Made when there is something to show first.
  void show(GtkDialog* dialog, const std::string& text);

 private:
  GObjectPtr<GtkWidget> label_;
};

}  // namespace publishing
