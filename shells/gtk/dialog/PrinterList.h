// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

#include <gtk/gtkunixprint.h>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// The list of printers on a print dialog's own tab. The dialog says that a printer is selected once
// it knows what that can do; which one the user picked meanwhile is said here only.
class PrinterList {
 public:
  // Nothing is ever picked in a dialog whose list is of another kind than this GTK's.
  explicit PrinterList(GtkPrintUnixDialog* dialog);

  // The printer in the row that the user picked; null for none.
  [[nodiscard]] GObjectPtr<GtkPrinter> picked() const;

  // Called after each pick. Throws nothing into the toolkit.
  void setPicked(std::function<void()> picked) { picked_ = std::move(picked); }

 private:
  GObjectPtr<GObject> selection_;  // null for a list of another kind
  std::function<void()> picked_;
  SignalHandlers handlers_;
};

}  // namespace publishing
