// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Picture.h"

#include <stdexcept>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {
namespace {

constexpr guint kAnimations = 500;  // milliseconds

void wait(guint milliseconds) {
  g_timeout_add(
      milliseconds,
      [](gpointer) {
        gtk_main_quit();
        return G_SOURCE_REMOVE;
      },
      nullptr);
  gtk_main();
}

}  // namespace

void drawWindow(GtkWindow* window, const std::string& file) {
  wait(kAnimations);
  GdkWindow* drawn = gtk_widget_get_window(GTK_WIDGET(window));
  const GObjectPtr<GdkPixbuf> picture(gdk_pixbuf_get_from_window(
      drawn, 0, 0, gdk_window_get_width(drawn), gdk_window_get_height(drawn)));
  GError* error = nullptr;
  if (gdk_pixbuf_save(picture.get(), file.c_str(), "png", &error, nullptr) != 0) return;
  const std::string reason = error->message;
  g_error_free(error);
  throw std::runtime_error(file + ": " + reason);
}

}  // namespace publishing
