// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/DialogOptionSet.h"

#include <memory>

#include <gmodule.h>

#include "base/GlibHandles.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

// GTK_PRINTER_OPTION_TYPE_STRING
constexpr int kStringOption = 8;

struct Functions {
  GType (*getType)() = nullptr;
  gpointer (*lookup)(gpointer set, const char* name) = nullptr;
  void (*add)(gpointer set, gpointer option) = nullptr;
  void (*remove)(gpointer set, gpointer option) = nullptr;
  gpointer (*newOption)(const char* name, const char* text, int type) = nullptr;
  void (*setValue)(gpointer option, const char* value) = nullptr;
  bool complete = false;
};

template <class Function>
bool find(GModule* module, const char* name, Function& function) {
  gpointer symbol = nullptr;
  if (g_module_symbol(module, name, &symbol) == 0 || symbol == nullptr) return false;
  function = reinterpret_cast<Function>(symbol);
  return true;
}

Functions findFunctions() {
  Functions found;
  GModule* gtk = g_module_open(toolkit::kLibrary, G_MODULE_BIND_LAZY);
  if (gtk == nullptr) return found;
  g_module_make_resident(gtk);
  found.complete = find(gtk, "gtk_printer_option_set_get_type", found.getType) &&
                   find(gtk, "gtk_printer_option_set_lookup", found.lookup) &&
                   find(gtk, "gtk_printer_option_set_add", found.add) &&
                   find(gtk, "gtk_printer_option_set_remove", found.remove) &&
                   find(gtk, "gtk_printer_option_new", found.newOption) &&
                   find(gtk, "gtk_printer_option_set", found.setValue) &&
                   g_type_is_a(found.getType(), G_TYPE_OBJECT) != 0;
  return found;
}

const Functions& functions() {
  static const Functions found = findFunctions();
  return found;
}

using Constructed = void (*)(GObject*);

Constructed constructedBefore = nullptr;
gpointer newestSet = nullptr;  // cleared by GObject when the set goes

void constructed(GObject* set) {
  if (constructedBefore != nullptr) constructedBefore(set);
  g_set_weak_pointer(&newestSet, set);
}

}  // namespace

bool DialogOptionSet::watch() {
  static const bool hooked = hook();
  return hooked;
}

bool DialogOptionSet::hook() {
  if (!functions().complete) return false;
  auto* type = G_OBJECT_CLASS(g_type_class_ref(functions().getType()));  // kept for good
  constructedBefore = type->constructed;
  type->constructed = constructed;
  return true;
}

DialogOptionSet DialogOptionSet::newest() {
  return newestSet != nullptr ? DialogOptionSet(G_OBJECT(newestSet)) : DialogOptionSet();
}

std::optional<std::string> DialogOptionSet::value(const std::string& name) const {
  gpointer option = set_ != nullptr ? functions().lookup(set_.get(), name.c_str()) : nullptr;
  if (option == nullptr) return std::nullopt;
  gchar* value = nullptr;
  g_object_get(option, "value", &value, nullptr);
  const GlibText owned(value);
  return value != nullptr ? value : "";
}

bool DialogOptionSet::set(const std::string& name, const std::string& value) const {
  gpointer option = set_ != nullptr ? functions().lookup(set_.get(), name.c_str()) : nullptr;
  if (option == nullptr) return false;
  functions().setValue(option, value.c_str());
  return true;
}

void DialogOptionSet::store(const std::string& name, const std::string& value) const {
  if (set_ == nullptr || set(name, value)) return;
  const GObjectPtr<GObject> option(
      G_OBJECT(functions().newOption(name.c_str(), name.c_str(), kStringOption)));
  functions().setValue(option.get(), value.c_str());
  functions().add(set_.get(), option.get());
}

void DialogOptionSet::remove(const std::string& name) const {
  gpointer option = set_ != nullptr ? functions().lookup(set_.get(), name.c_str()) : nullptr;
  if (option != nullptr) functions().remove(set_.get(), option);
}

}  // namespace publishing
