// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/InterfaceBuilder.h"

#include "base/GlibHandles.h"
#include "shells/gtk/gtk4/InterfaceConversion.h"
#include "shells/gtk/gtk4/RadioButton.h"

namespace publishing {

BuiltInterface buildInterface(const char* description, gssize length) {
  const auto converted = convertInterface(description, length);
  if (!converted) return {};
  radioButtonType();  // known to the builder by its name
  GObjectPtr<GtkBuilder> builder(gtk_builder_new());
  GError* failure = nullptr;
  if (gtk_builder_add_from_string(builder.get(), converted->description.c_str(), -1, &failure) ==
      0) {
    const GlibError error(failure);
    g_warning("The interface description cannot be read: %s", error->message);
    return {};
  }
  BuiltInterface built{std::move(builder), {}};
  for (const auto& signal : converted->signals) {
    GObject* object = gtk_builder_get_object(built.builder.get(), signal.object.c_str());
    built.signals.push_back({object, signal.name, signal.handler});
  }
  return built;
}

}  // namespace publishing
