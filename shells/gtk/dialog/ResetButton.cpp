// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/ResetButton.h"

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintQuestions.h"

namespace publishing {

GtkWidget* ResetButton::makeButton() {
  button_ = shareGObject(gtk_button_new());
  gtk_button_set_use_underline(GTK_BUTTON(button_.get()), TRUE);
  gtk_widget_set_name(button_.get(), "Reset");
  const auto clicked = [](GtkButton*, gpointer self) {
    guarded([&] { static_cast<ResetButton*>(self)->press(); });
  };
  handlers_.connect(button_.get(), "clicked", G_CALLBACK(+clicked), this);
  update();
  return button_.get();
}

void ResetButton::update() {
  if (button_ == nullptr) return;
  const bool undoes = host_.canUndoReset();
  gtk_button_set_label(GTK_BUTTON(button_.get()),
                       translated(undoes ? N_("_Undo Reset") : N_("_Reset")).c_str());
  gtk_widget_set_tooltip_text(
      button_.get(),
      translated(undoes
                     ? N_("Bring back the covers and inserts, and what was remembered")
                     : N_("Switch off covers and inserts, and forget what is remembered for this "
                          "printer"))
          .c_str());
}

void ResetButton::press() {
  const std::string problem = host_.canUndoReset() ? host_.undoReset() : host_.reset();
  update();
  if (problem.empty()) return;
  tellProblem(toolkit::windowOf(button_.get()), problem);
}

}  // namespace publishing
