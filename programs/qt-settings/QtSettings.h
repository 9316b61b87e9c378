// SPDX-License-Identifier: Apache-2.0
// How Qt is told of the panel: the variable QT_PLUGIN_PATH of all programs of a session, which
// systemd takes from files in the folders environment.d (environment.d(5)).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/gtk-settings/GtkSettingsFile.h"

namespace publishing {

struct QtPlaces {
  std::string folder;      // to be named by QT_PLUGIN_PATH; it may not be there
  std::string userFile;    // below the user's environment.d
  std::string systemFile;  // below the administrator's

  // Those of this system and user. The folder is the one that was installed or built with this
  // program, unless the variable PUBLISHING_QT_PLUGINS names another.
  static QtPlaces here();

  // The major versions of Qt that the folder has the panel for.
  [[nodiscard]] std::vector<int> versions() const;

  // Has a Qt of that version try what it would load from the folder. A plug-in that Qt cannot load
  // would leave its programs without printers; nothing, or what is wrong.
  [[nodiscard]] std::optional<std::string> faultOf(int version) const;
};

// One of the two files. What is in it is written and removed as a whole; a file that somebody else
// made is left alone.
class QtSettingsFile {
 public:
  using Change = GtkSettingsFile::Change;

  // `remedy` is said when rights are missing.
  QtSettingsFile(std::string path, std::string remedy)
      : path_(std::move(path)), remedy_(std::move(remedy)) {}

  [[nodiscard]] const std::string& path() const { return path_; }

  // Whether it names the folder. False for a file that cannot be read.
  [[nodiscard]] bool names(const std::string& folder) const;

  // Throw PrintError (Trouble) with nothing changed.
  [[nodiscard]] Change enable(const std::string& folder) const;
  [[nodiscard]] Change disable() const;

 private:
  std::string path_;
  std::string remedy_;
};

}  // namespace publishing
