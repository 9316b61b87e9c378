// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Picture.h"

#include <stdexcept>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {
namespace {

constexpr guint kAnimations = 500;  // milliseconds

void wait(guint milliseconds) {
  bool isOver = false;
  g_timeout_add_once(
      milliseconds, [](gpointer over) { *static_cast<bool*>(over) = true; }, &isOver);
  while (!isOver)
    g_main_context_iteration(nullptr, TRUE);
}

}  // namespace

void drawWindow(GtkWindow* window, const std::string& file) {
  wait(kAnimations);
  const GObjectPtr<GdkPaintable> paintable(gtk_widget_paintable_new(GTK_WIDGET(window)));
  GtkSnapshot* snapshot = gtk_snapshot_new();
  gdk_paintable_snapshot(paintable.get(), snapshot,
                         gdk_paintable_get_intrinsic_width(paintable.get()),
                         gdk_paintable_get_intrinsic_height(paintable.get()));
  GskRenderNode* node = gtk_snapshot_free_to_node(snapshot);
  if (node == nullptr) throw std::runtime_error(file + ": there is nothing to draw");
  GskRenderer* renderer = gtk_native_get_renderer(GTK_NATIVE(window));
  const GObjectPtr<GdkTexture> texture(gsk_renderer_render_texture(renderer, node, nullptr));
  gsk_render_node_unref(node);
  if (gdk_texture_save_to_png(texture.get(), file.c_str()) == 0)
    throw std::runtime_error(file + " cannot be written");
}

}  // namespace publishing
