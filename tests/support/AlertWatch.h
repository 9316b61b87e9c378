// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <vector>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"
#include "tests/support/PanelStage.h"

namespace publishing {

// A user who reads each message dialog of the program as soon as it is on the display, and answers
// it, by default with the button that Return presses.
class AlertWatch {
 public:
  explicit AlertWatch(AlertSink alerts);
  AlertWatch(const AlertWatch&) = delete;
  AlertWatch& operator=(const AlertWatch&) = delete;
  ~AlertWatch();

  // The next dialog is answered with this response instead.
  void answerNext(int response) { nextAnswer_ = response; }

  // Called while each dialog is on the display, before it is answered.
  std::function<void(GtkDialog* dialog)> onShown;

 private:
  static gboolean mapped(GSignalInvocationHint* hint, guint count, const GValue* values,
                         gpointer self);
  static gboolean answer(gpointer self);

  AlertSink alerts_;
  std::vector<GObjectPtr<GtkDialog>> shown_;
  int nextAnswer_ = 0;
  guint mapSignal_;
  gulong mapHook_;
};

}  // namespace publishing
