// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/Toolkit.h"

#include <utility>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"
#include "shells/gtk/gtk4/RadioButton.h"

namespace publishing::toolkit {

namespace {

// Whether the window was not destroyed.
bool isOpen(GtkWindow* window) {
  GListModel* windows = gtk_window_get_toplevels();
  for (guint i = 0; i < g_list_model_get_n_items(windows); ++i) {
    const GObjectPtr<GtkWindow> open(GTK_WINDOW(g_list_model_get_item(windows, i)));
    if (open.get() == window) return true;
  }
  return false;
}

}  // namespace

const char* const kLibrary = "libgtk-4.so.1";

const char* builderIdOf(GtkBuildable* object) {
  return gtk_buildable_get_buildable_id(object);
}

std::vector<GtkWidget*> childrenOf(GtkWidget* parent) {
  std::vector<GtkWidget*> children;
  for (GtkWidget* child = gtk_widget_get_first_child(parent); child != nullptr;
       child = gtk_widget_get_next_sibling(child))
    children.push_back(child);
  return children;
}

void append(GtkBox* box, GtkWidget* child) {
  gtk_box_append(box, child);
}

void insertAfter(GtkBox* box, GtkWidget* child, GtkWidget* sibling) {
  gtk_box_insert_child_after(box, child, sibling);
}

void remove(GtkBox* box, GtkWidget* child) {
  gtk_box_remove(box, child);
}

void setInfoBarContent(GtkInfoBar* bar, GtkWidget* child) {
  gtk_info_bar_add_child(bar, child);
}

void showWithChildren(GtkWidget* widget) {
  gtk_widget_show(widget);
}

GtkWindow* windowOf(GtkWidget* widget) {
  GtkRoot* root = gtk_widget_get_root(widget);
  return GTK_IS_WINDOW(root) ? GTK_WINDOW(root) : nullptr;
}

void destroyWindow(GtkWindow* window) {
  gtk_window_destroy(window);
}

// A window that somebody holds on to, such as the signal being dealt with, tells of its end much
// later than it comes: it is unrealized first.
void whenDestroyed(GtkWindow* window, std::function<void()> function) {
  callAtEach(window, "destroy", function);
  callAtEach(window, "unrealize", [window, function = std::move(function)] {
    if (!isOpen(window)) function();
  });
}

int runDialog(GtkDialog* dialog) {
  struct Run {
    GMainLoop* loop;
    int response;
  };
  const auto responded = [](GtkDialog*, int response, gpointer run) {
    static_cast<Run*>(run)->response = response;
    g_main_loop_quit(static_cast<Run*>(run)->loop);
  };
  const auto gone = [](GtkWidget*, gpointer run) {
    g_main_loop_quit(static_cast<Run*>(run)->loop);
  };
  GtkWindow* parent = gtk_window_get_transient_for(GTK_WINDOW(dialog));
  if (parent != nullptr && !isOpen(parent)) return GTK_RESPONSE_NONE;
  Run run{g_main_loop_new(nullptr, FALSE), GTK_RESPONSE_NONE};
  {
    SignalHandlers handlers;
    handlers.connect(dialog, "response", G_CALLBACK(+responded), &run);
    handlers.connect(dialog, "unmap", G_CALLBACK(+gone), &run);
    if (parent != nullptr) handlers.connect(parent, "unrealize", G_CALLBACK(+gone), &run);
    gtk_window_present(GTK_WINDOW(dialog));
    g_main_loop_run(run.loop);
  }
  g_main_loop_unref(run.loop);
  return parent == nullptr || isOpen(parent) ? run.response : GTK_RESPONSE_NONE;
}

bool isActive(GtkCheckButton* button) {
  return gtk_check_button_get_active(button) != 0;
}

void setActive(GtkCheckButton* button, bool active) {
  gtk_check_button_set_active(button, active ? TRUE : FALSE);
}

bool isMixed(GtkCheckButton* button) {
  return gtk_check_button_get_inconsistent(button) != 0;
}

void setMixed(GtkCheckButton* button, bool mixed) {
  gtk_check_button_set_inconsistent(button, mixed ? TRUE : FALSE);
}

bool isRadioButton(GObject* object) {
  return g_type_is_a(G_OBJECT_TYPE(object), radioButtonType()) != 0;
}

GtkCheckButton* newRadioButton(GtkCheckButton* member) {
  auto* button = GTK_CHECK_BUTTON(g_object_new(radioButtonType(), nullptr));
  gtk_check_button_set_group(button, member);
  return button;
}

std::string textOf(GtkEntry* entry) {
  return gtk_editable_get_text(GTK_EDITABLE(entry));
}

void setText(GtkEntry* entry, const std::string& text) {
  gtk_editable_set_text(GTK_EDITABLE(entry), text.c_str());
}

GtkWidget* editedPartOf(GtkEntry* entry) {
  return GTK_WIDGET(gtk_editable_get_delegate(GTK_EDITABLE(entry)));
}

// Menus scroll.
void showAsList(GtkComboBox* /*comboBox*/) {}

guint32 eventTime() {
  return GDK_CURRENT_TIME;
}

GdkRGBA textColourOf(GtkWidget* widget) {
  GdkRGBA colour{};
  gtk_style_context_get_color(gtk_widget_get_style_context(widget), &colour);
  return colour;
}

}  // namespace publishing::toolkit
