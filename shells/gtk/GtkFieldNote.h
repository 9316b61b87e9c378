// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

#include "shells/FieldNote.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {

// A note in a label below an entry, and marks in the entry for those who do not look there. The
// label keeps the height of the lines that its description says, so that nothing moves. Text that
// a user leaves unfinished is marked as a fault.
class GtkFieldNote {
 public:
  GtkFieldNote(GtkEntry* entry, GtkLabel* label);

  void show(const FieldNote& note);

 private:
  void mark();
  [[nodiscard]] GtkWidget* entry() const { return GTK_WIDGET(entry_.get()); }
  [[nodiscard]] GtkWidget* edited() const { return toolkit::editedPartOf(entry_.get()); }
  [[nodiscard]] GtkWidget* label() const { return GTK_WIDGET(label_.get()); }

  GObjectPtr<GtkEntry> entry_;
  GObjectPtr<GtkLabel> label_;
  FieldNote::Kind kind_ = FieldNote::Kind::Hint;
  SignalHandlers handlers_;
};

}  // namespace publishing
