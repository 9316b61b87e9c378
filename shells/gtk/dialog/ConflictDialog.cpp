// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/ConflictDialog.h"

#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/HostMessages.h"
#include "shells/gtk/GObjectPtr.h"

namespace publishing {

bool insistsOnConflicts(GtkWindow* parent, const std::vector<Conflict>& conflicts) {
  const HostMessage message = conflictMessage(conflicts);
  const auto flags = static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
  const auto question =
      shareGObject(gtk_message_dialog_new(parent, flags, GTK_MESSAGE_WARNING, GTK_BUTTONS_NONE,
                                          "%s", displayText(message.title).c_str()));
  auto* dialog = GTK_DIALOG(question.get());
  gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s",
                                           displayText(message.text).c_str());
  gtk_dialog_add_button(dialog, translated(kPrintAnyway).c_str(), GTK_RESPONSE_YES);
  gtk_dialog_add_button(dialog, translated(kGoBack).c_str(), GTK_RESPONSE_CANCEL);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_CANCEL);
  const bool insists = gtk_dialog_run(dialog) == GTK_RESPONSE_YES;
  gtk_widget_destroy(question.get());
  return insists;
}

}  // namespace publishing
