// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GtkGestures.h"

#include <iterator>
#include <stdexcept>

#include "base/GlibHandles.h"
#include "shells/gtk/Toolkit.h"

namespace publishing::gestures {
namespace {

// The widget's own controller of that type.
gpointer controllerOf(GtkWidget* widget, GType type) {
  const GObjectPtr<GListModel> controllers(gtk_widget_observe_controllers(widget));
  for (guint i = 0; i < g_list_model_get_n_items(controllers.get()); ++i) {
    const GObjectPtr<GObject> controller(G_OBJECT(g_list_model_get_item(controllers.get(), i)));
    if (g_type_is_a(G_OBJECT_TYPE(controller.get()), type) != 0) return controller.get();
  }
  throw std::runtime_error("no such controller");
}

// The items of what the widget pops up, in their order.
std::vector<GtkWidget*> itemsIn(GtkWidget* widget, const char* cssName) {
  std::vector<GtkWidget*> items;
  forEachWidget(widget, [&](GtkWidget* item) {
    if (std::string(gtk_widget_get_css_name(item)) == cssName) items.push_back(item);
  });
  return items;
}

// A text less the "_" that mark letters.
std::string withoutMnemonic(const std::string& label) {
  std::string text;
  for (std::size_t i = 0; i < label.size(); ++i) {
    if (label[i] == '_' && ++i == label.size()) break;
    text += label[i];
  }
  return text;
}

std::string textOfItem(GtkWidget* item) {
  gchar* text = nullptr;
  g_object_get(item, "text", &text, nullptr);
  const GlibText owned(text);
  return text != nullptr ? text : "";
}

std::string faultOf(GtkWidget* widget, GtkAccessibleProperty property, const std::string& text) {
  const GlibText fault(
      gtk_test_accessible_check_property(GTK_ACCESSIBLE(widget), property, text.c_str()));
  return fault != nullptr ? fault.get() : "";
}

}  // namespace

bool startToolkit() {
  g_setenv("GTK_A11Y", "test", TRUE);  // what screen readers are told is kept for the tests
  return gtk_init_check() != 0;
}

void settle() {
  while (g_main_context_pending(nullptr) != 0)
    g_main_context_iteration(nullptr, FALSE);
}

GObjectPtr<GtkWidget> newWindow() {
  return shareGObject(gtk_window_new());
}

void setContent(GtkWindow* window, GtkWidget* content) {
  gtk_window_set_child(window, content);
}

void forEachWidget(GtkWidget* widget, const std::function<void(GtkWidget*)>& visit) {
  visit(widget);
  for (GtkWidget* child : toolkit::childrenOf(widget))
    forEachWidget(child, visit);
}

void click(GtkWidget* button) {
  if (gtk_widget_is_sensitive(button) == 0) return;
  if (GTK_IS_BUTTON(button)) {
    g_signal_emit_by_name(button, "clicked");  // activating takes its time
  } else {
    gtk_widget_activate(button);
  }
}

std::string labelOf(GtkWidget* button) {
  return withoutMnemonic(gtk_button_get_label(GTK_BUTTON(button)));
}

void pickItem(GtkComboBox* comboBox, int index) {
  if (gtk_widget_is_sensitive(GTK_WIDGET(comboBox)) == 0) return;
  // GTK itself complains of a menu without items.
  if (gtk_tree_model_iter_n_children(gtk_combo_box_get_model(comboBox), nullptr) == 0) return;
  gtk_combo_box_popup(comboBox);
  settle();
  const std::vector<GtkWidget*> items = itemsIn(GTK_WIDGET(comboBox), "modelbutton");
  if (index < std::ssize(items)) {
    GtkWidget* item = items[static_cast<std::size_t>(index)];
    if (gtk_widget_is_sensitive(item) != 0)
      g_signal_emit_by_name(controllerOf(item, GTK_TYPE_GESTURE_CLICK), "pressed", 1, 1.0, 1.0);
  }
  gtk_combo_box_popdown(comboBox);
}

void insert(GtkEntry* entry, const std::string& text) {
  g_signal_emit_by_name(toolkit::editedPartOf(entry), "insert-at-cursor", text.c_str());
}

void backspace(GtkEntry* entry) {
  g_signal_emit_by_name(toolkit::editedPartOf(entry), "backspace");
}

void paste(GtkEntry* entry, const std::string& text) {
  gdk_clipboard_set_text(gtk_widget_get_clipboard(GTK_WIDGET(entry)), text.c_str());
  g_signal_emit_by_name(toolkit::editedPartOf(entry), "paste-clipboard");
}

bool pressKey(GtkWidget* widget, guint key) {
  gboolean isDone = FALSE;
  g_signal_emit_by_name(controllerOf(widget, GTK_TYPE_EVENT_CONTROLLER_KEY), "key-pressed", key, 0,
                        0, &isDone);
  return isDone != 0;
}

void pressTab(GtkWindow* window) {
  gtk_widget_child_focus(GTK_WIDGET(window), GTK_DIR_TAB_FORWARD);
}

void draw(GtkWidget* widget, cairo_t* context) {
  GtkSnapshot* snapshot = gtk_snapshot_new();
  GTK_WIDGET_GET_CLASS(widget)->snapshot(widget, snapshot);
  GskRenderNode* node = gtk_snapshot_free_to_node(snapshot);
  if (node == nullptr) return;
  gsk_render_node_draw(node, context);
  gsk_render_node_unref(node);
}

std::vector<std::string> chooseFromMenu(GtkWidget* button, const std::string& text,
                                        const char* below) {
  auto* menuButton = GTK_MENU_BUTTON(button);
  gtk_menu_button_popup(menuButton);
  settle();
  const auto popover = shareGObject(GTK_WIDGET(gtk_menu_button_get_popover(menuButton)));
  std::vector<std::string> texts;
  GMenuModel* menu = gtk_menu_button_get_menu_model(menuButton);
  for (int section = 0; section < g_menu_model_get_n_items(menu); ++section) {
    const GObjectPtr<GMenuModel> items(
        g_menu_model_get_item_link(menu, section, G_MENU_LINK_SECTION));
    for (int item = 0; item < g_menu_model_get_n_items(items.get()); ++item) {
      gchar* label = nullptr;
      g_menu_model_get_item_attribute(items.get(), item, G_MENU_ATTRIBUTE_LABEL, "s", &label);
      const GlibText owned(label);
      texts.push_back(withoutMnemonic(label));
    }
  }
  // The items of submenus come behind all others.
  GtkWidget* chosen = nullptr;
  for (GtkWidget* item : itemsIn(popover.get(), "modelbutton")) {
    if (below == nullptr && chosen != nullptr) continue;
    if (textOfItem(item) == (below != nullptr ? below : text)) chosen = item;
  }
  if (chosen != nullptr && gtk_widget_is_sensitive(chosen) != 0)
    g_signal_emit_by_name(chosen, "clicked");
  gtk_popover_popdown(GTK_POPOVER(popover.get()));
  settle();
  return texts;
}

bool pickPrinter(GtkPrintUnixDialog* dialog, const std::string& name) {
  auto* list = GTK_COLUMN_VIEW(gtk_widget_get_template_child(
      GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "printer_list"));
  auto* selection = GTK_SINGLE_SELECTION(gtk_column_view_get_model(list));
  for (guint row = 0; row < g_list_model_get_n_items(G_LIST_MODEL(selection)); ++row) {
    const GObjectPtr<GtkPrinter> printer(
        GTK_PRINTER(g_list_model_get_item(G_LIST_MODEL(selection), row)));
    if (name != gtk_printer_get_name(printer.get())) continue;
    gtk_single_selection_set_selected(selection, row);
    return true;
  }
  return false;
}

void resize(GtkWindow* window, int width, int height) {
  gtk_window_set_default_size(window, width, height);
}

std::string faultOfAccessibleName(GtkWidget* widget, const std::string& name) {
  return faultOf(widget, GTK_ACCESSIBLE_PROPERTY_LABEL, name);
}

std::string faultOfAccessibleDescription(GtkWidget* widget, const std::string& description) {
  return faultOf(widget, GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, description);
}

bool isAccessibleImage(GtkWidget* widget) {
  return gtk_accessible_get_accessible_role(GTK_ACCESSIBLE(widget)) == GTK_ACCESSIBLE_ROLE_IMG;
}

}  // namespace publishing::gestures
