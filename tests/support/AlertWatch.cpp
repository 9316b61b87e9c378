// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AlertWatch.h"

#include <utility>

#include "base/GlibHandles.h"
#include "tests/support/GtkGestures.h"

namespace publishing {
namespace {

std::string textProperty(GtkDialog* dialog, const char* property) {
  gchar* text = nullptr;
  g_object_get(dialog, property, &text, nullptr);
  const GlibText owned(text);
  return text != nullptr ? text : "";
}

}  // namespace

AlertWatch::AlertWatch(AlertSink alerts)
    : alerts_(std::move(alerts)),
      mapSignal_(g_signal_lookup("map", GTK_TYPE_WIDGET)),
      mapHook_(g_signal_add_emission_hook(mapSignal_, 0, &AlertWatch::mapped, this, nullptr)) {}

AlertWatch::~AlertWatch() {
  g_signal_remove_emission_hook(mapSignal_, mapHook_);
}

gboolean AlertWatch::mapped(GSignalInvocationHint*, guint, const GValue* values, gpointer self) {
  auto& watch = *static_cast<AlertWatch*>(self);
  GObject* widget = G_OBJECT(g_value_get_object(values));
  if (GTK_IS_MESSAGE_DIALOG(widget)) {
    watch.shown_.push_back(shareGObject(GTK_DIALOG(widget)));
    g_idle_add(&AlertWatch::answer, self);
  }
  return TRUE;  // stay hooked
}

gboolean AlertWatch::answer(gpointer self) {
  auto& watch = *static_cast<AlertWatch*>(self);
  const auto dialog = std::move(watch.shown_.back());
  watch.shown_.pop_back();
  if (watch.onShown) watch.onShown(dialog.get());
  if (gtk_widget_get_mapped(GTK_WIDGET(dialog.get())) == 0) return G_SOURCE_REMOVE;  // closed
  GtkWidget* button = gtk_window_get_default_widget(GTK_WINDOW(dialog.get()));
  watch.alerts_(textProperty(dialog.get(), "text"), textProperty(dialog.get(), "secondary-text"),
                gestures::labelOf(button));
  const int response = std::exchange(watch.nextAnswer_, 0);
  if (response != 0) button = gtk_dialog_get_widget_for_response(dialog.get(), response);
  gestures::click(button);
  return G_SOURCE_REMOVE;
}

}  // namespace publishing
