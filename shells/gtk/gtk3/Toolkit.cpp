// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/Toolkit.h"

#include <utility>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing::toolkit {

const char* const kLibrary = "libgtk-3.so.0";

const char* builderIdOf(GtkBuildable* object) {
  return gtk_buildable_get_name(object);
}

std::vector<GtkWidget*> childrenOf(GtkWidget* parent) {
  std::vector<GtkWidget*> children;
  if (!GTK_IS_CONTAINER(parent)) return children;
  GList* list = gtk_container_get_children(GTK_CONTAINER(parent));
  for (const GList* child = list; child != nullptr; child = child->next)
    children.push_back(GTK_WIDGET(child->data));
  g_list_free(list);
  return children;
}

void append(GtkBox* box, GtkWidget* child) {
  gtk_container_add(GTK_CONTAINER(box), child);
}

void insertAfter(GtkBox* box, GtkWidget* child, GtkWidget* sibling) {
  append(box, child);
  gint position = 0;
  if (sibling != nullptr) {
    gtk_container_child_get(GTK_CONTAINER(box), sibling, "position", &position, nullptr);
    ++position;
  }
  gtk_box_reorder_child(box, child, position);
}

void remove(GtkBox* box, GtkWidget* child) {
  gtk_container_remove(GTK_CONTAINER(box), child);
}

void setInfoBarContent(GtkInfoBar* bar, GtkWidget* child) {
  gtk_container_add(GTK_CONTAINER(gtk_info_bar_get_content_area(bar)), child);
}

void showWithChildren(GtkWidget* widget) {
  gtk_widget_show_all(widget);
}

GtkWindow* windowOf(GtkWidget* widget) {
  GtkWidget* top = gtk_widget_get_toplevel(widget);
  return GTK_IS_WINDOW(top) ? GTK_WINDOW(top) : nullptr;
}

void destroyWindow(GtkWindow* window) {
  gtk_widget_destroy(GTK_WIDGET(window));
}

void whenDestroyed(GtkWindow* window, std::function<void()> function) {
  callAtEach(window, "destroy", std::move(function));
}

int runDialog(GtkDialog* dialog) {
  return gtk_dialog_run(dialog);
}

bool isActive(GtkCheckButton* button) {
  return gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(button)) != 0;
}

void setActive(GtkCheckButton* button, bool active) {
  gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(button), active ? TRUE : FALSE);
}

bool isMixed(GtkCheckButton* button) {
  return gtk_toggle_button_get_inconsistent(GTK_TOGGLE_BUTTON(button)) != 0;
}

void setMixed(GtkCheckButton* button, bool mixed) {
  gtk_toggle_button_set_inconsistent(GTK_TOGGLE_BUTTON(button), mixed ? TRUE : FALSE);
}

bool isRadioButton(GObject* object) {
  return GTK_IS_RADIO_BUTTON(object) != 0;
}

GtkCheckButton* newRadioButton(GtkCheckButton* member) {
  auto* group = member != nullptr ? GTK_RADIO_BUTTON(member) : nullptr;
  return GTK_CHECK_BUTTON(gtk_radio_button_new_from_widget(group));
}

std::string textOf(GtkEntry* entry) {
  return gtk_entry_get_text(entry);
}

void setText(GtkEntry* entry, const std::string& text) {
  gtk_entry_set_text(entry, text.c_str());
}

GtkWidget* editedPartOf(GtkEntry* entry) {
  return GTK_WIDGET(entry);
}

// A list that scrolls, in place of a menu.
void showAsList(GtkComboBox* comboBox) {
  const GObjectPtr<GtkCssProvider> style(gtk_css_provider_new());
  gtk_css_provider_load_from_data(style.get(), "* { -GtkComboBox-appears-as-list: true; }", -1,
                                  nullptr);
  gtk_style_context_add_provider(gtk_widget_get_style_context(GTK_WIDGET(comboBox)),
                                 GTK_STYLE_PROVIDER(style.get()),
                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_signal_emit_by_name(comboBox, "style-updated");  // at once, before there are items
}

guint32 eventTime() {
  return gtk_get_current_event_time();
}

GdkRGBA textColourOf(GtkWidget* widget) {
  GdkRGBA colour{};
  GtkStyleContext* style = gtk_widget_get_style_context(widget);
  gtk_style_context_get_color(style, gtk_style_context_get_state(style), &colour);
  return colour;
}

}  // namespace publishing::toolkit
