// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PresetMenu.h"

#include <utility>

#include "base/GlibHandles.h"
#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintQuestions.h"

namespace publishing {
namespace {

GObjectPtr<GtkWidget> newQuestion(GtkWindow* parent, GtkMessageType type,
                                  const std::string& question) {
  const auto flags = static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT);
  return shareGObject(gtk_message_dialog_new(parent, flags, type, GTK_BUTTONS_NONE, "%s",
                                             displayText(question).c_str()));
}

// The entry for a name, with the label that names it, in the dialog.
GtkEntry* addEntry(GtkWidget* dialog) {
  GtkWidget* box = gtk_message_dialog_get_message_area(GTK_MESSAGE_DIALOG(dialog));
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 12);
  GtkWidget* label = gtk_label_new_with_mnemonic(translated("_Name:").c_str());
  GtkWidget* entry = gtk_entry_new();
  gtk_entry_set_activates_default(GTK_ENTRY(entry), TRUE);
  gtk_widget_set_hexpand(entry, TRUE);
  gtk_label_set_mnemonic_widget(GTK_LABEL(label), entry);
  toolkit::append(GTK_BOX(row), label);
  toolkit::append(GTK_BOX(row), entry);
  toolkit::append(GTK_BOX(box), row);
  toolkit::showWithChildren(row);
  return GTK_ENTRY(entry);
}

}  // namespace

GtkWidget* PresetMenu::makeButton() {
  button_ =
      std::make_unique<MenuButton>(translated("Prese_ts"), "Presets", [this] { return items(); });
  gtk_widget_set_tooltip_text(button_->widget(),
                              translated("Covers and inserts kept under a name").c_str());
  return button_->widget();
}

MenuButton::Sections PresetMenu::items() {
  const Presets::Listing listing = Presets().list();
  for (const std::string& warning : listing.warnings)
    g_message("%s", warning.c_str());
  using Kind = MenuItem::Kind;
  std::vector<MenuItem> presets;
  std::vector<MenuItem> deletions;
  for (const StoredPreset& stored : listing.presets) {
    const std::string& name = stored.preset.name;
    presets.push_back({Kind::Name, name, [this, name] { host_.usePreset(name, *this); }, {}});
    if (stored.isShared) continue;
    deletions.push_back({Kind::Name, name, [this, name] { host_.deletePreset(name, *this); }, {}});
  }
  if (presets.empty()) presets.push_back({Kind::Command, translated("No presets yet"), {}, {}});
  return {std::move(presets),
          {{Kind::Command, translated("_Save as…"), [this] { host_.savePreset(*this); }, {}},
           {Kind::Command, translated("_Delete"), {}, std::move(deletions)}}};
}

GtkWindow* PresetMenu::window() const {
  return toolkit::windowOf(button_->widget());
}

// Nothing of this object may be used after a window was open: it may be gone with the dialog.
std::optional<std::string> PresetMenu::askName() {
  const auto question = newQuestion(window(), GTK_MESSAGE_OTHER,
                                    translated("Save these covers and inserts as a preset"));
  auto* dialog = GTK_DIALOG(question.get());
  const auto entry = shareGObject(addEntry(question.get()));
  gtk_dialog_add_button(dialog, translated("_Cancel").c_str(), GTK_RESPONSE_CANCEL);
  gtk_dialog_add_button(dialog, translated("_Save").c_str(), GTK_RESPONSE_OK);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_OK);
  gtk_widget_grab_focus(GTK_WIDGET(entry.get()));
  std::optional<std::string> answer;
  while (!answer && toolkit::runDialog(dialog) == GTK_RESPONSE_OK) {
    const GlibText name(g_strstrip(g_strdup(toolkit::textOf(entry.get()).c_str())));
    const auto fault = faultOfPresetName(name.get());
    if (fault) {
      gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s",
                                               displayText(*fault).c_str());
      gtk_widget_grab_focus(GTK_WIDGET(entry.get()));
    } else {
      answer = name.get();
    }
  }
  toolkit::destroyWindow(GTK_WINDOW(dialog));
  return answer;
}

bool PresetMenu::confirms(const std::string& question, const char* label) {
  const auto window = newQuestion(this->window(), GTK_MESSAGE_QUESTION, question);
  auto* dialog = GTK_DIALOG(window.get());
  gtk_dialog_add_button(dialog, translated("_Cancel").c_str(), GTK_RESPONSE_CANCEL);
  gtk_dialog_add_button(dialog, label, GTK_RESPONSE_YES);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_CANCEL);
  const bool confirms = toolkit::runDialog(dialog) == GTK_RESPONSE_YES;
  toolkit::destroyWindow(GTK_WINDOW(dialog));
  return confirms;
}

bool PresetMenu::confirmsReplacing(const std::string& name) {
  return confirms(translated("There is a preset named “%s” already. Replace it?", name),
                  translated("_Replace").c_str());
}

bool PresetMenu::confirmsDeleting(const std::string& name) {
  return confirms(translated("Delete the preset “%s”?", name), translated("_Delete").c_str());
}

void PresetMenu::tell(const std::string& problem) {
  tellProblem(window(), problem);
}

}  // namespace publishing
