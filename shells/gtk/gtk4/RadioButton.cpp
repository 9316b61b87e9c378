// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/gtk4/RadioButton.h"

namespace publishing {
namespace {

gpointer parentClass = nullptr;
guint clickedSignal = 0;

void tellClicked(GtkCheckButton* button) {
  g_signal_emit(button, clickedSignal, 0);
}

// One that becomes active, by whatever means, was clicked.
void toggled(GtkCheckButton* button) {
  if (gtk_check_button_get_active(button) != 0) tellClicked(button);
}

// By the keyboard, or by an assistive technology.
void activate(GtkCheckButton* button) {
  const bool wasActive = gtk_check_button_get_active(button) != 0;
  GTK_CHECK_BUTTON_CLASS(parentClass)->activate(button);
  if (wasActive) tellClicked(button);
}

// Comes before GTK's own answer to the click, which makes the button active.
void released(GtkGestureClick* gesture, int, double, double, gpointer) {
  auto* button = GTK_CHECK_BUTTON(gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(gesture)));
  if (gtk_check_button_get_active(button) != 0) tellClicked(button);
}

void initClass(gpointer type, gpointer) {
  parentClass = g_type_class_peek_parent(type);
  GTK_CHECK_BUTTON_CLASS(type)->toggled = toggled;
  GTK_CHECK_BUTTON_CLASS(type)->activate = activate;
  clickedSignal = g_signal_new("clicked", G_TYPE_FROM_CLASS(type), G_SIGNAL_RUN_FIRST, 0, nullptr,
                               nullptr, nullptr, G_TYPE_NONE, 0);
}

void init(GTypeInstance* button, gpointer) {
  GtkGesture* gesture = gtk_gesture_click_new();
  gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(gesture), GTK_PHASE_CAPTURE);
  g_signal_connect(gesture, "released", G_CALLBACK(released), nullptr);
  gtk_widget_add_controller(GTK_WIDGET(button), GTK_EVENT_CONTROLLER(gesture));
}

}  // namespace

GType radioButtonType() {
  static const GType type = g_type_register_static_simple(
      GTK_TYPE_CHECK_BUTTON, "PublishingRadioButton", sizeof(GtkCheckButtonClass), initClass,
      sizeof(GtkCheckButton), init, G_TYPE_FLAG_NONE);
  return type;
}

}  // namespace publishing
