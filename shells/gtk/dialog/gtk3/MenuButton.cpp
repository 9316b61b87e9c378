// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/MenuButton.h"

#include <memory>

#include "shells/DisplayText.h"
#include "shells/Guarded.h"

namespace publishing {
namespace {

constexpr int kWidestName = 40;  // characters

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

GtkWidget* newNameItem(const std::string& name) {
  const std::string shown = displayText(name);
  GtkWidget* item = gtk_menu_item_new_with_label(shown.c_str());
  auto* label = GTK_LABEL(gtk_bin_get_child(GTK_BIN(item)));
  gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
  gtk_label_set_max_width_chars(label, kWidestName);
  if (g_utf8_strlen(shown.c_str(), -1) > kWidestName)
    gtk_widget_set_tooltip_text(item, shown.c_str());
  return item;
}

void addItems(GtkWidget* menu, const std::vector<MenuItem>& items) {
  for (const MenuItem& item : items) {
    GtkWidget* widget = item.kind == MenuItem::Kind::Name
                            ? newNameItem(item.text)
                            : gtk_menu_item_new_with_mnemonic(item.text.c_str());
    if (item.chosen) callAtEach(widget, "activate", item.chosen);
    gtk_widget_set_sensitive(widget, item.chosen || !item.below.empty() ? TRUE : FALSE);
    if (!item.below.empty()) {
      GtkWidget* submenu = gtk_menu_new();
      addItems(submenu, item.below);
      gtk_menu_item_set_submenu(GTK_MENU_ITEM(widget), submenu);
    }
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), widget);
  }
}

}  // namespace

MenuButton::MenuButton(const std::string& label, const char* name,
                       std::function<Sections()> makeMenu)
    : makeMenu_(std::move(makeMenu)),
      button_(shareGObject(gtk_button_new_with_mnemonic(label.c_str()))) {
  auto* button = GTK_BUTTON(widget());
  gtk_button_set_image(button,
                       gtk_image_new_from_icon_name("pan-down-symbolic", GTK_ICON_SIZE_BUTTON));
  gtk_button_set_image_position(button, GTK_POS_RIGHT);
  gtk_button_set_always_show_image(button, TRUE);
  gtk_widget_set_name(widget(), name);
  const auto clicked = [](GtkWidget* pressed, gpointer self) {
    guarded([&] {
      auto& menuButton = *static_cast<MenuButton*>(self);
      menuButton.fill();
      gtk_menu_popup_at_widget(GTK_MENU(menuButton.menu_.get()), pressed, GDK_GRAVITY_SOUTH_WEST,
                               GDK_GRAVITY_NORTH_WEST, triggerFor(pressed).get());
    });
  };
  handlers_.connect(button, "clicked", G_CALLBACK(+clicked), this);
}

MenuButton::~MenuButton() {
  if (menu_ != nullptr) gtk_widget_destroy(GTK_WIDGET(menu_.get()));
}

void MenuButton::fill() {
  if (menu_ != nullptr) gtk_widget_destroy(GTK_WIDGET(menu_.get()));
  GtkWidget* menu = gtk_menu_new();
  menu_ = shareGObject(G_OBJECT(menu));
  gtk_menu_attach_to_widget(GTK_MENU(menu), widget(), nullptr);
  bool isFirst = true;
  for (const std::vector<MenuItem>& section : makeMenu_()) {
    if (!std::exchange(isFirst, false))
      gtk_menu_shell_append(GTK_MENU_SHELL(menu), gtk_separator_menu_item_new());
    addItems(menu, section);
  }
  gtk_widget_show_all(menu);
}

}  // namespace publishing
