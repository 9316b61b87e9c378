// SPDX-License-Identifier: Apache-2.0
#include "programs/gtk-settings/GtkSettingsPlaces.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <span>
#include <sstream>

#include <glib-object.h>
#include <gmodule.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/TextFile.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "programs/gtk-settings/GtkSettingsText.h"
#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

constexpr std::size_t kLargestFile = 1048576;  // bytes
constexpr const char* kModuleCache = "giomodule.cache";

// What differs between the two.
struct Gtk {
  const char* folder;         // of its settings and of its libraries
  const char* library;        // its own
  const char* ownList;        // of print backends, in its sources
  const char* binaryVersion;  // the name of the folder of modules for this GTK alone
};

const Gtk& factsOf(GtkVersion gtk) {
  static constexpr Gtk kGtk3 = {"/gtk-3.0", "libgtk-3.so.0", "file,cups",
                                PUBLISHING_GTK_BINARY_VERSION};
  static constexpr Gtk kGtk4 = {"/gtk-4.0", "libgtk-4.so.1", "cups,file",
                                PUBLISHING_GTK4_BINARY_VERSION};
  return gtk == GtkVersion::Gtk3 ? kGtk3 : kGtk4;
}

std::string variable(const char* name, const char* otherwise) {
  const char* value = g_getenv(name);
  return value != nullptr ? value : otherwise;
}

// The default of a GTK setting needs neither a display nor GTK's initialisation, only its type.
std::string listBuiltInto(const char* gtk) {
  GModule* module = g_module_open(gtk, G_MODULE_BIND_LAZY);
  gpointer symbol = nullptr;
  if (module == nullptr || g_module_symbol(module, "gtk_settings_get_type", &symbol) == FALSE)
    return {};
  const auto settingsType = reinterpret_cast<GType (*)()>(symbol);
  const GParamSpec* setting = g_object_class_find_property(
      G_OBJECT_CLASS(g_type_class_ref(settingsType())), GTK_BACKENDS_SETTING);
  if (setting == nullptr || !G_IS_PARAM_SPEC_STRING(setting)) return {};
  const char* text = G_PARAM_SPEC_STRING(setting)->default_value;
  return text != nullptr ? text : "";
}

// What a child process makes of it; empty when it comes to grief.
std::string listFromChild(const char* gtk) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) {
    const std::string list = listBuiltInto(gtk);
    _exit(write(ends[1], list.data(), list.size()) < 0 ? 1 : 0);
  }
  close(ends[1]);
  std::string list;
  std::array<char, 256> part{};
  for (ssize_t size = 1; child > 0 && size > 0;) {
    size = read(ends[0], part.data(), part.size());
    if (size > 0) list.append(part.data(), static_cast<std::size_t>(size));
  }
  close(ends[0]);
  if (child > 0) waitpid(child, nullptr, 0);
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

GtkSettingsPlaces GtkSettingsPlaces::here(GtkVersion gtk) {
  const Gtk& facts = factsOf(gtk);
  const std::string file = std::string(facts.folder) + "/settings.ini";
  GtkSettingsPlaces places;
  places.builtIn = listFromChild(facts.library);
  if (places.builtIn.empty()) places.builtIn = facts.ownList;
  places.systemFile = "/etc" + file;
  places.systemFiles = {variable("GTK_DATA_PREFIX", PUBLISHING_GTK_PREFIX) + "/share" + file,
                        places.systemFile};
  for (const char* const* folder = g_get_system_config_dirs(); *folder != nullptr; ++folder)
    places.systemFiles.push_back(std::string(*folder) + file);
  places.userFile = userConfigFolder() + file;
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

std::optional<std::string> printBackendLibrary(GtkVersion gtk) {
  const Gtk& facts = factsOf(gtk);
  std::istringstream folders(variable("GTK_PATH", "") + G_SEARCHPATH_SEPARATOR_S +
                             (g_getenv("GTK_EXE_PREFIX") != nullptr
                                  ? variable("GTK_EXE_PREFIX", "") + "/lib"
                                  : PUBLISHING_GTK_LIBRARIES) +
                             facts.folder);
  for (std::string folder; std::getline(folders, folder, G_SEARCHPATH_SEPARATOR);) {
    if (folder.empty()) continue;
    for (const std::string& version : {"/" + std::string(facts.binaryVersion), std::string()}) {
      // Without a version it would be either GTK's; it is never put there for GTK 4.
      if (version.empty() && gtk == GtkVersion::Gtk4) continue;
      for (const char* host : {"/" PUBLISHING_GTK_HOST, ""}) {
        const std::string library =
            folder + version + host + "/printbackends/" PUBLISHING_BACKEND_LIBRARY;
        if (std::error_code ignored; std::filesystem::exists(library, ignored)) return library;
      }
    }
  }
  return std::nullopt;
}

bool isInModuleCache(const std::string& library) {
  const std::filesystem::path file(library);
  const std::string cache = file.parent_path() / kModuleCache;
  struct stat ofLibrary {};
  struct stat ofCache {};
  if (stat(library.c_str(), &ofLibrary) != 0 || stat(cache.c_str(), &ofCache) != 0) return false;
  // GIO's own rule: the list counts for files that were there when it was made.
  if (ofLibrary.st_ctime > std::max(ofCache.st_mtime, ofCache.st_ctime)) return false;
  const TextFile list = readTextFile(cache, kLargestFile);
  return ("\n" + list.text).find("\n" + file.filename().string() + ":") != std::string::npos;
}

}  // namespace publishing
