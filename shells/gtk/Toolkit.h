// SPDX-License-Identifier: Apache-2.0
// What GTK 3 and GTK 4 do in different ways, as far as functions can hide it. Made in gtk3/ and
// gtk4/; what is built from this folder has no other word of which GTK it is for, but classes with
// a file of their own in both.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtk/gtk.h>

namespace publishing::toolkit {

// GTK's file, as programs name it.
extern const char* const kLibrary;

// The object's id for the builder, which gives one to all; null when it has none.
const char* builderIdOf(GtkBuildable* object);

// The object's id in the interface description that it was made from, else the name that it was
// given; empty when it has neither.
std::string idOf(GObject* object);

// In their order.
std::vector<GtkWidget*> childrenOf(GtkWidget* parent);

void append(GtkBox* box, GtkWidget* child);

// Behind that child of the box; in front of all when `sibling` is null.
void insertAfter(GtkBox* box, GtkWidget* child, GtkWidget* sibling);

// On all sides.
void setMargins(GtkWidget* widget, int pixels);

// Puts the child that its container has owned into nobody's hands.
void remove(GtkBox* box, GtkWidget* child);
void setInfoBarContent(GtkInfoBar* bar, GtkWidget* child);

// New widgets are hidden in GTK 3. Windows are left alone.
void showWithChildren(GtkWidget* widget);

// The window that the widget is in; null for none.
GtkWindow* windowOf(GtkWidget* widget);

// Ends the window, whoever holds on to it.
void destroyWindow(GtkWindow* window);

// Calls the function when that happens to the window, perhaps more than once.
void whenDestroyed(GtkWindow* window, std::function<void()> function);

// Shows the dialog and waits for the answer; GTK_RESPONSE_NONE when it is hidden or destroyed
// without one, or the window that it belongs to is destroyed. The dialog stays.
int runDialog(GtkDialog* dialog);

// Of check boxes and of radio buttons.
[[nodiscard]] bool isActive(GtkCheckButton* button);
void setActive(GtkCheckButton* button, bool active);
[[nodiscard]] bool isMixed(GtkCheckButton* button);
void setMixed(GtkCheckButton* button, bool mixed);

[[nodiscard]] bool isRadioButton(GObject* object);

// A radio button of another one's group; of a group of its own when that is null.
GtkCheckButton* newRadioButton(GtkCheckButton* member);

[[nodiscard]] std::string textOf(GtkEntry* entry);
void setText(GtkEntry* entry, const std::string& text);

// What has the keyboard's focus when the entry has it, and tells of each edit.
GtkWidget* editedPartOf(GtkEntry* entry);

// To be called before the list has too many items for a menu.
void showAsList(GtkComboBox* comboBox);

// When the user did what is being dealt with; for windows of other programs.
[[nodiscard]] guint32 eventTime();

// Of the widget's texts.
[[nodiscard]] GdkRGBA textColourOf(GtkWidget* widget);

}  // namespace publishing::toolkit
