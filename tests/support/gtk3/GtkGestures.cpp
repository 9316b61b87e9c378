// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GtkGestures.h"

#include <iterator>
#include <memory>

#include "shells/gtk/Toolkit.h"

namespace publishing::gestures {
namespace {

using GlibList = std::unique_ptr<GList, decltype([](GList* list) { g_list_free(list); })>;

std::string textOf(GtkMenuItem* item) {
  GtkWidget* label = gtk_bin_get_child(GTK_BIN(item));
  return GTK_IS_LABEL(label) ? gtk_label_get_text(GTK_LABEL(label)) : "";
}

// The menu's item with that text, if any, and the texts of all.
GtkMenuItem* itemOf(GtkWidget* menu, const std::string& text, std::vector<std::string>* texts) {
  GtkMenuItem* found = nullptr;
  for (GtkWidget* item : toolkit::childrenOf(menu)) {
    if (GTK_IS_SEPARATOR_MENU_ITEM(item)) continue;
    const std::string shown = textOf(GTK_MENU_ITEM(item));
    if (texts != nullptr) texts->push_back(shown);
    if (shown == text) found = GTK_MENU_ITEM(item);
  }
  return found;
}

std::string difference(const gchar* text, const std::string& expected) {
  if (text != nullptr && expected == text) return {};
  return std::string(text != nullptr ? text : "(nothing)") + " instead of " + expected;
}

}  // namespace

bool startToolkit() {
  return gtk_init_check(nullptr, nullptr) != 0;
}

void settle() {
  while (gtk_events_pending())
    gtk_main_iteration();
}

GObjectPtr<GtkWidget> newWindow() {
  return shareGObject(gtk_window_new(GTK_WINDOW_TOPLEVEL));
}

void setContent(GtkWindow* window, GtkWidget* content) {
  if (GtkWidget* old = gtk_bin_get_child(GTK_BIN(window)))
    gtk_container_remove(GTK_CONTAINER(window), old);
  if (content != nullptr) gtk_container_add(GTK_CONTAINER(window), content);
}

void forEachWidget(GtkWidget* widget, const std::function<void(GtkWidget*)>& visit) {
  visit(widget);
  if (!GTK_IS_CONTAINER(widget)) return;
  const auto each = [](GtkWidget* child, gpointer data) {
    forEachWidget(child, *static_cast<const std::function<void(GtkWidget*)>*>(data));
  };
  auto* data = const_cast<std::function<void(GtkWidget*)>*>(&visit);  // NOLINT: C callback
  gtk_container_forall(GTK_CONTAINER(widget), each, data);
}

void click(GtkWidget* button) {
  if (gtk_widget_is_sensitive(button) != 0) gtk_button_clicked(GTK_BUTTON(button));
}

std::string labelOf(GtkWidget* button) {
  return gtk_label_get_text(GTK_LABEL(gtk_bin_get_child(GTK_BIN(button))));
}

void pickItem(GtkComboBox* comboBox, int index) {
  if (gtk_widget_is_sensitive(GTK_WIDGET(comboBox)) == 0) return;
  AtkObject* popup = gtk_combo_box_get_popup_accessible(comboBox);
  GtkWidget* menu = gtk_accessible_get_widget(GTK_ACCESSIBLE(popup));
  // The menu takes over which items are sensitive when it is measured to be shown.
  gtk_widget_get_preferred_size(menu, nullptr, nullptr);
  std::vector<GtkWidget*> items = toolkit::childrenOf(menu);
  std::erase_if(items, [](GtkWidget* item) { return GTK_IS_SEPARATOR_MENU_ITEM(item) != 0; });
  if (index >= std::ssize(items)) return;
  GtkWidget* item = items[static_cast<std::size_t>(index)];
  if (gtk_widget_is_sensitive(item) != 0)
    gtk_menu_shell_activate_item(GTK_MENU_SHELL(menu), item, TRUE);
}

void insert(GtkEntry* entry, const std::string& text) {
  g_signal_emit_by_name(entry, "insert-at-cursor", text.c_str());
}

void backspace(GtkEntry* entry) {
  g_signal_emit_by_name(entry, "backspace");
}

void paste(GtkEntry* entry, const std::string& text) {
  gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), text.c_str(), -1);
  gtk_editable_paste_clipboard(GTK_EDITABLE(entry));
}

bool pressKey(GtkWidget* widget, guint key) {
  GdkEventKey event{};
  event.type = GDK_KEY_PRESS;
  event.keyval = key;
  gboolean isDone = FALSE;
  g_signal_emit_by_name(widget, "key-press-event", &event, &isDone);
  return isDone != 0;
}

void pressTab(GtkWindow* gtkWindow) {
  GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
  GdkWindow* window = gtk_widget_get_window(GTK_WIDGET(gtkWindow));
  event->key.window = GDK_WINDOW(g_object_ref(window));
  event->key.keyval = GDK_KEY_Tab;
  GdkDisplay* display = gdk_window_get_display(window);
  GdkKeymapKey* codes = nullptr;
  gint count = 0;
  gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), GDK_KEY_Tab, &codes,
                                    &count);
  event->key.hardware_keycode = static_cast<guint16>(codes[0].keycode);
  g_free(codes);
  gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
  gtk_main_do_event(event);
  gdk_event_free(event);
  settle();
}

void draw(GtkWidget* widget, cairo_t* context) {
  gboolean isDone = FALSE;
  g_signal_emit_by_name(widget, "draw", context, &isDone);
}

std::vector<std::string> chooseFromMenu(GtkWidget* button, const std::string& text,
                                        const char* below) {
  gtk_button_clicked(GTK_BUTTON(button));
  settle();
  const GlibList menus(g_list_copy(gtk_menu_get_for_attach_widget(button)));
  const auto menu = shareGObject(GTK_WIDGET(menus->data));
  std::vector<std::string> texts;
  GtkMenuItem* chosen = itemOf(menu.get(), text, &texts);
  if (chosen != nullptr && below != nullptr)
    chosen = itemOf(gtk_menu_item_get_submenu(chosen), below, nullptr);
  GtkWidget* item = GTK_WIDGET(chosen);
  if (item != nullptr && gtk_widget_is_sensitive(item) != 0) {
    gtk_menu_shell_activate_item(GTK_MENU_SHELL(gtk_widget_get_parent(item)), item, TRUE);
  } else {
    gtk_menu_popdown(GTK_MENU(menu.get()));
  }
  settle();
  return texts;
}

bool pickPrinter(GtkPrintUnixDialog* dialog, const std::string& name) {
  constexpr int kPrinterColumn = 5;
  auto* list = GTK_TREE_VIEW(gtk_widget_get_template_child(
      GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "printer_treeview"));
  GtkTreeModel* model = gtk_tree_view_get_model(list);
  GtkTreeIter row;
  for (bool more = gtk_tree_model_get_iter_first(model, &row) != 0; more;
       more = gtk_tree_model_iter_next(model, &row) != 0) {
    GtkPrinter* printer = nullptr;
    gtk_tree_model_get(model, &row, kPrinterColumn, &printer, -1);
    const GObjectPtr<GtkPrinter> owned(printer);
    if (printer == nullptr || name != gtk_printer_get_name(printer)) continue;
    gtk_tree_selection_select_iter(gtk_tree_view_get_selection(list), &row);
    return true;
  }
  return false;
}

void resize(GtkWindow* window, int width, int height) {
  gtk_window_resize(window, width, height);
}

std::string faultOfAccessibleName(GtkWidget* widget, const std::string& name) {
  return difference(atk_object_get_name(gtk_widget_get_accessible(widget)), name);
}

std::string faultOfAccessibleDescription(GtkWidget* widget, const std::string& description) {
  return difference(atk_object_get_description(gtk_widget_get_accessible(widget)), description);
}

bool isAccessibleImage(GtkWidget* widget) {
  return atk_object_get_role(gtk_widget_get_accessible(widget)) == ATK_ROLE_IMAGE;
}

}  // namespace publishing::gestures
