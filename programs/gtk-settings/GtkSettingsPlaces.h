// SPDX-License-Identifier: Apache-2.0
// Where GTK 3 and GTK 4 look for their settings and for print backends (gtksettings.c and
// gtkmodules.c of GTK 3.24 and 4.8).
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace publishing {

enum class GtkVersion { Gtk3 = 3, Gtk4 = 4 };

struct GtkSettingsPlaces {
  std::string builtIn;                   // the list of print backends that GTK has without any file
  std::vector<std::string> systemFiles;  // in the order in which GTK reads them: the last one wins
  std::string userFile;                  // read after all of them
  std::string systemFile;                // the one of systemFiles that belongs to the administrator

  // Those of this system and user. Asks GTK for its own list, in a process of its own, because no
  // process can have both; where there is no such GTK it is that of GTK's sources.
  static GtkSettingsPlaces here(GtkVersion gtk);
};

// The list of print backends that counts.
struct PrintBackends {
  std::string list;
  std::string file;                   // the file it is from; empty when it is GTK's own
  std::vector<std::string> warnings;  // for the user: files that GTK ignores
};

// The list after reading the system's files, without (`user` false) or with the user's one. Throws
// nothing for what it finds.
PrintBackends printBackends(const GtkSettingsPlaces& places, bool user);

// The list that counts before `file` is read; `file` is one of the places.
std::string inheritedBackends(const GtkSettingsPlaces& places, const std::string& file);

// The library that GTK would load for the print backend "publishing"; nothing when it finds none.
std::optional<std::string> printBackendLibrary(GtkVersion gtk);

// Whether the list of modules in the library's folder, giomodule.cache, has it and is not older.
// GTK 4 loads what is not listed when a program starts, not when it prints.
bool isInModuleCache(const std::string& library);

}  // namespace publishing
