// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/InterfaceBuilder.h"

#include "base/GlibHandles.h"

namespace publishing {

BuiltInterface buildInterface(const char* description, gssize length) {
  GObjectPtr<GtkBuilder> builder(gtk_builder_new());
  GError* failure = nullptr;
  if (gtk_builder_add_from_string(builder.get(), description, static_cast<gsize>(length),
                                  &failure) == 0) {
    const GlibError error(failure);
    g_warning("The interface description cannot be read: %s", error->message);
    return {};
  }
  BuiltInterface built{std::move(builder), {}};
  const auto collect = [](GtkBuilder*, GObject* object, const gchar* signal, const gchar* handler,
                          GObject*, GConnectFlags, gpointer data) {
    static_cast<BuiltInterface*>(data)->signals.push_back({object, signal, handler});
  };
  gtk_builder_connect_signals_full(built.builder.get(), +collect, &built);
  return built;
}

}  // namespace publishing
