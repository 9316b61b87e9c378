// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PresetMenu.h"

#include <memory>

#include "base/GlibHandles.h"
#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/dialog/PrintQuestions.h"

namespace publishing {
namespace {

constexpr const char* kNameOfItem = "publishing-preset";
constexpr int kWidestName = 40;  // characters

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
  gtk_container_add(GTK_CONTAINER(row), label);
  gtk_container_add(GTK_CONTAINER(row), entry);
  gtk_container_add(GTK_CONTAINER(box), row);
  gtk_widget_show_all(row);
  return GTK_ENTRY(entry);
}

GtkWidget* newItem(const std::string& name) {
  GtkWidget* item = gtk_menu_item_new_with_label(displayText(name).c_str());
  auto* label = GTK_LABEL(gtk_bin_get_child(GTK_BIN(item)));
  gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
  gtk_label_set_max_width_chars(label, kWidestName);
  gtk_widget_set_tooltip_text(
      item, g_utf8_strlen(name.c_str(), -1) > kWidestName ? displayText(name).c_str() : nullptr);
  g_object_set_data_full(G_OBJECT(item), kNameOfItem, g_strdup(name.c_str()), g_free);
  return item;
}

std::string nameOf(GtkMenuItem* item) {
  return static_cast<const char*>(g_object_get_data(G_OBJECT(item), kNameOfItem));
}

struct FreeEvent {
  void operator()(GdkEvent* event) const { gdk_event_free(event); }
};

// What has the menu opened, which GTK wants to know. An assistive technology presses the button
// without an event: it gets that of a click.
std::unique_ptr<GdkEvent, FreeEvent> triggerFor(GtkWidget* button) {
  GdkEvent* event = gtk_get_current_event();
  if (event == nullptr) {
    event = gdk_event_new(GDK_BUTTON_PRESS);
    event->button.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(button)));
    GdkSeat* seat = gdk_display_get_default_seat(gtk_widget_get_display(button));
    gdk_event_set_device(event, gdk_seat_get_pointer(seat));
  }
  return std::unique_ptr<GdkEvent, FreeEvent>(event);
}

}  // namespace

GtkWidget* PresetMenu::makeButton() {
  button_ = shareGObject(gtk_button_new_with_mnemonic(translated("Prese_ts").c_str()));
  auto* button = GTK_BUTTON(button_.get());
  gtk_button_set_image(button,
                       gtk_image_new_from_icon_name("pan-down-symbolic", GTK_ICON_SIZE_BUTTON));
  gtk_button_set_image_position(button, GTK_POS_RIGHT);
  gtk_button_set_always_show_image(button, TRUE);
  gtk_widget_set_tooltip_text(button_.get(),
                              translated("Covers and inserts kept under a name").c_str());
  gtk_buildable_set_name(GTK_BUILDABLE(button_.get()), "Presets");
  const auto clicked = [](GtkButton*, gpointer self) {
    guarded([&] { static_cast<PresetMenu*>(self)->open(); });
  };
  handlers_.connect(button, "clicked", G_CALLBACK(+clicked), this);
  return button_.get();
}

PresetMenu::~PresetMenu() {
  if (menu_ != nullptr) gtk_widget_destroy(menu_.get());
}

void PresetMenu::open() {
  fill();
  const auto event = triggerFor(button_.get());
  gtk_menu_popup_at_widget(GTK_MENU(menu_.get()), button_.get(), GDK_GRAVITY_SOUTH_WEST,
                           GDK_GRAVITY_NORTH_WEST, event.get());
}

GtkWidget* PresetMenu::addItem(GtkWidget* menu, GtkWidget* item,
                               void (*activated)(GtkMenuItem*, gpointer)) {
  if (activated != nullptr) itemHandlers_.connect(item, "activate", G_CALLBACK(activated), this);
  gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
  return item;
}

void PresetMenu::fill() {
  itemHandlers_.disconnectAll();
  if (menu_ != nullptr) gtk_widget_destroy(menu_.get());
  menu_ = shareGObject(gtk_menu_new());
  gtk_menu_attach_to_widget(GTK_MENU(menu_.get()), button_.get(), nullptr);
  const Presets::Listing listing = Presets().list();
  for (const std::string& warning : listing.warnings)
    g_message("%s", warning.c_str());

  GtkWidget* deletions = gtk_menu_new();
  bool hasOwn = false;
  for (const StoredPreset& stored : listing.presets) {
    const std::string& name = stored.preset.name;
    addItem(menu_.get(), newItem(name), [](GtkMenuItem* item, gpointer self) {
      guarded([&] { static_cast<PresetMenu*>(self)->use(nameOf(item)); });
    });
    if (stored.isShared) continue;
    hasOwn = true;
    addItem(deletions, newItem(name), [](GtkMenuItem* item, gpointer self) {
      guarded([&] { static_cast<PresetMenu*>(self)->remove(nameOf(item)); });
    });
  }
  if (listing.presets.empty()) {
    GtkWidget* none = gtk_menu_item_new_with_label(translated("No presets yet").c_str());
    gtk_widget_set_sensitive(addItem(menu_.get(), none, nullptr), FALSE);
  }
  addItem(menu_.get(), gtk_separator_menu_item_new(), nullptr);
  addItem(menu_.get(), gtk_menu_item_new_with_mnemonic(translated("_Save as…").c_str()),
          [](GtkMenuItem*, gpointer self) {
            guarded([&] { static_cast<PresetMenu*>(self)->save(); });
          });
  GtkWidget* remove =
      addItem(menu_.get(), gtk_menu_item_new_with_mnemonic(translated("_Delete").c_str()), nullptr);
  gtk_menu_item_set_submenu(GTK_MENU_ITEM(remove), deletions);
  gtk_widget_set_sensitive(remove, hasOwn ? TRUE : FALSE);
  gtk_widget_show_all(menu_.get());
}

void PresetMenu::use(const std::string& name) {
  host_.usePreset(name, *this);
}

void PresetMenu::save() {
  host_.savePreset(*this);
}

void PresetMenu::remove(const std::string& name) {
  host_.deletePreset(name, *this);
}

GtkWindow* PresetMenu::window() const {
  GtkWidget* top = gtk_widget_get_toplevel(button_.get());
  return GTK_IS_WINDOW(top) ? GTK_WINDOW(top) : nullptr;
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
  while (!answer && gtk_dialog_run(dialog) == GTK_RESPONSE_OK) {
    const GlibText name(g_strstrip(g_strdup(gtk_entry_get_text(entry.get()))));
    const auto fault = faultOfPresetName(name.get());
    if (fault) {
      gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s",
                                               displayText(*fault).c_str());
      gtk_widget_grab_focus(GTK_WIDGET(entry.get()));
    } else {
      answer = name.get();
    }
  }
  gtk_widget_destroy(question.get());
  return answer;
}

bool PresetMenu::confirms(const std::string& question, const char* label) {
  const auto window = newQuestion(this->window(), GTK_MESSAGE_QUESTION, question);
  auto* dialog = GTK_DIALOG(window.get());
  gtk_dialog_add_button(dialog, translated("_Cancel").c_str(), GTK_RESPONSE_CANCEL);
  gtk_dialog_add_button(dialog, label, GTK_RESPONSE_YES);
  gtk_dialog_set_default_response(dialog, GTK_RESPONSE_CANCEL);
  const bool confirms = gtk_dialog_run(dialog) == GTK_RESPONSE_YES;
  gtk_widget_destroy(window.get());
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
