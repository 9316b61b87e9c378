// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/RememberBox.h"

#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/HostMessages.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {

GtkWidget* RememberBox::makeBox() {
  box_ = shareGObject(gtk_check_button_new_with_mnemonic(translated(kRememberChoices).c_str()));
  gtk_widget_set_name(box_.get(), "Remember");
  const auto toggled = [](GtkCheckButton* box, gpointer self) {
    guarded([&] { static_cast<RememberBox*>(self)->host_.setRemembering(toolkit::isActive(box)); });
  };
  handlers_.connect(box_.get(), "toggled", G_CALLBACK(+toggled), this);
  update();
  return box_.get();
}

void RememberBox::update() {
  if (box_ == nullptr) return;
  const DialogHost::Remembering remembering = host_.remembering();
  const SignalHandlers::Block own(handlers_);
  toolkit::setActive(GTK_CHECK_BUTTON(box_.get()), remembering.isOn);
  gtk_widget_set_sensitive(box_.get(), remembering.against.empty() ? TRUE : FALSE);
  const std::string hint =
      remembering.against.empty() ? translated(kRememberHint) : displayText(remembering.against);
  gtk_widget_set_tooltip_text(box_.get(), hint.c_str());
}

}  // namespace publishing
