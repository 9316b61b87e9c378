// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/MenuButton.h"

#include "base/GlibHandles.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"

namespace publishing {
namespace {

constexpr glong kWidestName = 40;  // characters
constexpr const char* kGroup = "publishing";

// A name that fits into a menu; "_" would mark a letter.
std::string shownName(const std::string& name) {
  const std::string text = displayText(name);
  if (g_utf8_strlen(text.c_str(), -1) <= kWidestName) return displayLabel(text, '_');
  const GlibText beginning(g_utf8_substring(text.c_str(), 0, kWidestName - 1));
  return displayLabel(beginning.get() + std::string("…"), '_');
}

// The items as a menu; what they do goes into the group, under their numbers in it.
GObjectPtr<GMenu> newMenu(const std::vector<MenuItem>& items, GSimpleActionGroup* group,
                          int& count) {
  GObjectPtr<GMenu> menu(g_menu_new());
  for (const MenuItem& item : items) {
    const std::string label = item.kind == MenuItem::Kind::Name ? shownName(item.text) : item.text;
    if (!item.below.empty()) {
      const auto submenu = newMenu(item.below, group, count);
      g_menu_append_submenu(menu.get(), label.c_str(), G_MENU_MODEL(submenu.get()));
      continue;
    }
    const std::string name = "item" + std::to_string(++count);
    const GObjectPtr<GSimpleAction> action(g_simple_action_new(name.c_str(), nullptr));
    g_simple_action_set_enabled(action.get(), item.chosen ? TRUE : FALSE);
    if (item.chosen) callAtEach(action.get(), "activate", item.chosen);
    g_action_map_add_action(G_ACTION_MAP(group), G_ACTION(action.get()));
    g_menu_append(menu.get(), label.c_str(), (std::string(kGroup) + "." + name).c_str());
  }
  return menu;
}

}  // namespace

MenuButton::MenuButton(const std::string& label, const char* name,
                       std::function<Sections()> makeMenu)
    : makeMenu_(std::move(makeMenu)), button_(shareGObject(gtk_menu_button_new())) {
  auto* button = GTK_MENU_BUTTON(widget());
  gtk_menu_button_set_use_underline(button, TRUE);
  gtk_menu_button_set_label(button, label.c_str());
  gtk_widget_set_name(widget(), name);
  const auto opened = [](GtkMenuButton*, gpointer self) {
    guarded([&] { static_cast<MenuButton*>(self)->fill(); });
  };
  gtk_menu_button_set_create_popup_func(button, +opened, this, nullptr);
}

MenuButton::~MenuButton() {
  gtk_menu_button_set_create_popup_func(GTK_MENU_BUTTON(widget()), nullptr, nullptr, nullptr);
}

void MenuButton::fill() {
  const GObjectPtr<GSimpleActionGroup> group(g_simple_action_group_new());
  GObjectPtr<GMenu> menu(g_menu_new());
  int count = 0;
  for (const std::vector<MenuItem>& section : makeMenu_()) {
    const auto items = newMenu(section, group.get(), count);
    g_menu_append_section(menu.get(), nullptr, G_MENU_MODEL(items.get()));
  }
  gtk_widget_insert_action_group(widget(), kGroup, G_ACTION_GROUP(group.get()));
  gtk_menu_button_set_menu_model(GTK_MENU_BUTTON(widget()), G_MENU_MODEL(menu.get()));
}

}  // namespace publishing
