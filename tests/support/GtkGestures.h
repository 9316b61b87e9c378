// SPDX-License-Identifier: Apache-2.0
// What a user does to GTK's widgets, and what a test must say in different ways to GTK 3 and GTK 4.
// Made in gtk3/ and gtk4/.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtk/gtkunixprint.h>

#include "shells/gtk/GObjectPtr.h"

namespace publishing::gestures {

// False when there is no display.
bool startToolkit();

// Lets the toolkit do what is waiting.
void settle();

// A window that is not shown yet; to be destroyed.
GObjectPtr<GtkWidget> newWindow();

// Puts the widget into the window, in place of what is in it; null for nothing.
void setContent(GtkWindow* window, GtkWidget* content);

// The widget and all that is in it.
void forEachWidget(GtkWidget* widget, const std::function<void(GtkWidget*)>& visit);

// A click on a button of any kind; an insensitive one takes none.
void click(GtkWidget* button);

// What the button's label shows.
std::string labelOf(GtkWidget* button);

// Opens the menu and clicks the item; nothing happens when there is none or it is insensitive.
void pickItem(GtkComboBox* comboBox, int index);

// The text arrives at the entry's cursor in one piece, as from an input method or by pasting.
void insert(GtkEntry* entry, const std::string& text);
void backspace(GtkEntry* entry);
void paste(GtkEntry* entry, const std::string& text);

// A key on the widget that has the focus; true when something was done.
bool pressKey(GtkWidget* widget, guint key);

// The Tab key in the window.
void pressTab(GtkWindow* window);

// What the widget paints.
void draw(GtkWidget* widget, cairo_t* context);

// Opens the button's menu and chooses the item with this text, or the one below it in its submenu.
// Answers the texts of the menu's items.
std::vector<std::string> chooseFromMenu(GtkWidget* button, const std::string& text,
                                        const char* below);

// Whether the printer was in the dialog's list and could be picked.
bool pickPrinter(GtkPrintUnixDialog* dialog, const std::string& name);

void resize(GtkWindow* window, int width, int height);

// Says how what screen readers are told differs from that; empty when it does not.
std::string faultOfAccessibleName(GtkWidget* widget, const std::string& name);
std::string faultOfAccessibleDescription(GtkWidget* widget, const std::string& description);
bool isAccessibleImage(GtkWidget* widget);

}  // namespace publishing::gestures
