// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkAlertPanel.h"

#include "shells/DisplayText.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {

void GtkAlertPanel::runAlertPanel(const std::string& title, const std::string& message,
                                  const std::string& defaultButton) {
  const auto flags = static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
  GtkWindow* parent = view_ != nullptr ? toolkit::windowOf(view_->widget()) : nullptr;
  const auto alert = shareGObject(gtk_message_dialog_new(
      parent, flags, GTK_MESSAGE_WARNING, GTK_BUTTONS_NONE, "%s", displayText(title).c_str()));
  auto* dialog = GTK_DIALOG(alert.get());
  const std::string text = detail_.empty() ? message : message + "\n\n" + detail_;
  gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s",
                                           displayText(text).c_str());
  gtk_window_set_title(GTK_WINDOW(dialog), "");
  gtk_dialog_add_button(dialog, displayLabel(defaultButton, '_').c_str(), GTK_RESPONSE_OK);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_OK);
  toolkit::runDialog(dialog);
  toolkit::destroyWindow(GTK_WINDOW(dialog));
}

}  // namespace publishing
