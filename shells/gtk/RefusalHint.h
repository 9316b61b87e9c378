// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// A text beside a field that says why it did not take what was typed. It goes away by itself, or
// when the field loses the keyboard, and is in nobody's way meanwhile.
class RefusalHint {
 public:
  explicit RefusalHint(GtkEntry* field) : field_(field) {}
  RefusalHint(const RefusalHint&) = delete;
  RefusalHint& operator=(const RefusalHint&) = delete;
  ~RefusalHint();

  // Rings the bell as well. Nothing to be seen for a field that is not on the display.
  void show(const std::string& text);
  void hide();

  // The text that is shown; empty for none.
  [[nodiscard]] std::string text() const;

 private:
  void make();

  GtkEntry* field_;
  GObjectPtr<GtkPopover> popover_;  // null until it is needed
  GtkWidget* label_ = nullptr;
  guint clock_ = 0;
  SignalHandlers handlers_;
};

}  // namespace publishing
