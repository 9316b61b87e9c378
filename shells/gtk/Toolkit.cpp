// SPDX-License-Identifier: Apache-2.0
// What needs no word of its own for either GTK.
#include "shells/gtk/Toolkit.h"

namespace publishing::toolkit {

std::string idOf(GObject* object) {
  const char* id = GTK_IS_BUILDABLE(object) ? builderIdOf(GTK_BUILDABLE(object)) : nullptr;
  if (id != nullptr) return g_str_has_prefix(id, "___") ? std::string() : id;
  if (!GTK_IS_WIDGET(object)) return {};
  // Without a name of its own, a widget has that of its type.
  const std::string name = gtk_widget_get_name(GTK_WIDGET(object));
  return name != G_OBJECT_TYPE_NAME(object) ? name : std::string();
}

void setMargins(GtkWidget* widget, int pixels) {
  gtk_widget_set_margin_start(widget, pixels);
  gtk_widget_set_margin_end(widget, pixels);
  gtk_widget_set_margin_top(widget, pixels);
  gtk_widget_set_margin_bottom(widget, pixels);
}

}  // namespace publishing::toolkit
