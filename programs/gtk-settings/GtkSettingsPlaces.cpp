// SPDX-License-Identifier: Apache-2.0
#include "programs/gtk-settings/GtkSettingsPlaces.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <sstream>

#include <glib-object.h>
#include <gmodule.h>

#include "base/TextFile.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "programs/gtk-settings/GtkSettingsText.h"
#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

constexpr std::size_t kLargestFile = 1048576;  // bytes
constexpr const char* kFile = "/gtk-3.0/settings.ini";

std::string variable(const char* name, const char* otherwise) {
  const char* value = g_getenv(name);
  return value != nullptr ? value : otherwise;
}

// The default of a GTK setting needs neither a display nor GTK's initialisation, only its type.
std::string listBuiltIntoGtk() {
  std::string list = "file,cups";
  GModule* gtk = g_module_open("libgtk-3.so.0", G_MODULE_BIND_LAZY);
  gpointer symbol = nullptr;
  if (gtk == nullptr || g_module_symbol(gtk, "gtk_settings_get_type", &symbol) == FALSE)
    return list;
  g_module_make_resident(gtk);  // its types stay registered
  const auto settingsType = reinterpret_cast<GType (*)()>(symbol);
  gpointer settings = g_type_class_ref(settingsType());
  const GParamSpec* setting =
      g_object_class_find_property(G_OBJECT_CLASS(settings), GTK_BACKENDS_SETTING);
  if (setting != nullptr && G_IS_PARAM_SPEC_STRING(setting)) {
    const char* text = G_PARAM_SPEC_STRING(setting)->default_value;
    if (text != nullptr) list = text;
  }
  g_type_class_unref(settings);
  return list;
}

PrintBackends backendsAfter(std::string builtIn, std::span<const std::string> files) {
  PrintBackends result = {std::move(builtIn), {}, {}};
  for (const std::string& path : files) {
    const TextFile file = readTextFile(path, kLargestFile);
    const GtkSettingsText settings(file.text);
    const std::string fault = file.isRead() ? settings.fault().value_or("") : file.fault;
    if (!fault.empty()) {
      result.warnings.push_back(translated("GTK ignores %s: %s.", shown(path), fault));
    } else if (const auto list = settings.backends()) {
      result = {*list, path, std::move(result.warnings)};
    }
  }
  return result;
}

}  // namespace

GtkSettingsPlaces GtkSettingsPlaces::here() {
  GtkSettingsPlaces places;
  places.builtIn = listBuiltIntoGtk();
  places.systemFile = std::string("/etc") + kFile;
  places.systemFiles = {variable("GTK_DATA_PREFIX", PUBLISHING_GTK_PREFIX) + "/share" + kFile,
                        places.systemFile};
  for (const char* const* folder = g_get_system_config_dirs(); *folder != nullptr; ++folder)
    places.systemFiles.push_back(std::string(*folder) + kFile);
  places.userFile = userConfigFolder() + kFile;
  return places;
}

PrintBackends printBackends(const GtkSettingsPlaces& places, bool user) {
  std::vector<std::string> files = places.systemFiles;
  if (user) files.push_back(places.userFile);
  return backendsAfter(places.builtIn, files);
}

std::string inheritedBackends(const GtkSettingsPlaces& places, const std::string& file) {
  const auto& files = places.systemFiles;
  const auto end = std::find(files.begin(), files.end(), file);
  return backendsAfter(places.builtIn, std::span(files.begin(), end)).list;
}

std::optional<std::string> printBackendLibrary() {
  std::istringstream folders(variable("GTK_PATH", "") + G_SEARCHPATH_SEPARATOR_S +
                             (g_getenv("GTK_EXE_PREFIX") != nullptr
                                  ? variable("GTK_EXE_PREFIX", "") + "/lib"
                                  : PUBLISHING_GTK_LIBRARIES) +
                             "/gtk-3.0");
  for (std::string folder; std::getline(folders, folder, G_SEARCHPATH_SEPARATOR);) {
    if (folder.empty()) continue;
    for (const char* version : {"/" PUBLISHING_GTK_BINARY_VERSION, ""}) {
      for (const char* host : {"/" PUBLISHING_GTK_HOST, ""}) {
        const std::string library =
            folder + version + host + "/printbackends/" PUBLISHING_BACKEND_LIBRARY;
        if (std::error_code ignored; std::filesystem::exists(library, ignored)) return library;
      }
    }
  }
  return std::nullopt;
}

}  // namespace publishing
