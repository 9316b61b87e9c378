// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrintQuestions.h"

#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/HostMessages.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

bool isAnsweredWithPrint(GtkWindow* parent, const HostMessage& question, const char* print,
                         GtkResponseType byDefault) {
  const auto flags = static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
  const auto window =
      shareGObject(gtk_message_dialog_new(parent, flags, GTK_MESSAGE_WARNING, GTK_BUTTONS_NONE,
                                          "%s", displayText(question.title).c_str()));
  auto* dialog = GTK_DIALOG(window.get());
  gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s",
                                           displayText(question.text).c_str());
  gtk_dialog_add_button(dialog, translated(print).c_str(), GTK_RESPONSE_YES);
  gtk_dialog_add_button(dialog, translated(kGoBack).c_str(), GTK_RESPONSE_CANCEL);
  gtk_dialog_set_default_response(dialog, byDefault);
  const bool prints = toolkit::runDialog(dialog) == GTK_RESPONSE_YES;
  toolkit::destroyWindow(GTK_WINDOW(dialog));
  return prints;
}

}  // namespace

bool insistsOnConflicts(GtkWindow* parent, const std::vector<Conflict>& conflicts) {
  return isAnsweredWithPrint(parent, conflictMessage(conflicts), kPrintAnyway, GTK_RESPONSE_CANCEL);
}

bool printsWithout(GtkWindow* parent, const std::string& losses) {
  return isAnsweredWithPrint(parent, lossMessage(losses), kPrintWithout, GTK_RESPONSE_YES);
}

void tellProblem(GtkWindow* parent, const std::string& problem) {
  const auto flags = static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
  const auto window = shareGObject(gtk_message_dialog_new(
      parent, flags, GTK_MESSAGE_WARNING, GTK_BUTTONS_NONE, "%s", displayText(problem).c_str()));
  auto* dialog = GTK_DIALOG(window.get());
  gtk_dialog_add_button(dialog, translated("_Close").c_str(), GTK_RESPONSE_CLOSE);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_CLOSE);
  toolkit::runDialog(dialog);
  toolkit::destroyWindow(GTK_WINDOW(dialog));
}

}  // namespace publishing
