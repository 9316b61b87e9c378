// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GtkStage.h"

#include <utility>

#include "tests/support/WidgetStage.h"

namespace publishing {
namespace {

// A click or a key on the button; an insensitive one takes none.
void press(GtkWidget* button) {
  if (gtk_widget_is_sensitive(button) != 0) gtk_button_clicked(GTK_BUTTON(button));
}

}  // namespace

std::unique_ptr<PanelStage> makeWidgetStage(AlertSink alerts) {
  return std::make_unique<GtkStage>(std::move(alerts));
}

GtkStage::GtkStage(AlertSink alerts)
    : alerts_(std::move(alerts)),
      bundle_(std::make_shared<GtkBundle>("")),
      window_(shareGObject(gtk_window_new(GTK_WINDOW_TOPLEVEL))) {}

GtkStage::~GtkStage() {
  gtk_widget_destroy(window_.get());
}

GtkInterface* GtkStage::shown() {
  GtkInterface* interface = bundle_->interface();
  if (interface == nullptr || interface == inWindow_) return interface;
  if (GtkWidget* old = gtk_bin_get_child(GTK_BIN(window()))) {
    gtk_container_remove(GTK_CONTAINER(window()), old);
  }
  gtk_container_add(GTK_CONTAINER(window()), interface->view()->widget());
  gtk_widget_show(window_.get());
  settle();
  inWindow_ = interface;
  return interface;
}

void GtkStage::settle() {
  while (gtk_events_pending())
    gtk_main_iteration();
}

void GtkStage::click(const std::string& checkBox) {
  if (auto* interface = shown()) press(interface->checkBox(checkBox)->widget());
}

void GtkStage::clickRadioCell(std::int64_t column) {
  auto* interface = shown();
  if (interface == nullptr || column < 0) return;
  GtkWidget* matrix = interface->radioMatrix("CmFrontandBackMatrix")->widget();
  GList* cells = gtk_container_get_children(GTK_CONTAINER(matrix));
  if (void* cell = g_list_nth_data(cells, static_cast<guint>(column))) press(GTK_WIDGET(cell));
  g_list_free(cells);
}

void GtkStage::choose(const std::string& popUp, std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr || index < 0) return;
  GtkWidget* comboBox = interface->popUpButton(popUp)->widget();
  if (gtk_widget_is_sensitive(comboBox) == 0) return;
  AtkObject* popup = gtk_combo_box_get_popup_accessible(GTK_COMBO_BOX(comboBox));
  GtkWidget* menu = gtk_accessible_get_widget(GTK_ACCESSIBLE(popup));
  // The menu takes over which items are sensitive when it is measured to be shown.
  gtk_widget_get_preferred_size(menu, nullptr, nullptr);
  GList* items = gtk_container_get_children(GTK_CONTAINER(menu));
  void* item = g_list_nth_data(items, static_cast<guint>(index));
  if (item != nullptr && gtk_widget_is_sensitive(GTK_WIDGET(item)) != 0) {
    gtk_menu_shell_activate_item(GTK_MENU_SHELL(menu), GTK_WIDGET(item), TRUE);
  }
  g_list_free(items);
  settle();
}

void GtkStage::type(const std::string& text) {
  auto* interface = shown();
  if (interface == nullptr) return;
  GtkWidget* entry = interface->textField("PiPageNum")->widget();
  if (gtk_widget_is_sensitive(entry) == 0) return;
  gtk_editable_select_region(GTK_EDITABLE(entry), 0, -1);
  g_signal_emit_by_name(entry, "backspace");
  settle();
  for (const char* place = text.c_str(); *place != '\0'; place = g_utf8_next_char(place)) {
    const std::string key(place, static_cast<const char*>(g_utf8_next_char(place)));
    g_signal_emit_by_name(entry, "insert-at-cursor", key.c_str());
    settle();
  }
}

void GtkStage::selectTab(std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr || index < 0) return;
  GtkNotebook* notebook = interface->tabView("tabView")->notebook();
  if (index < gtk_notebook_get_n_pages(notebook) &&
      index != gtk_notebook_get_current_page(notebook)) {
    gtk_notebook_set_current_page(notebook, static_cast<gint>(index));
  }
}

}  // namespace publishing
