// SPDX-License-Identifier: Apache-2.0
// One settings.ini of GTK, in which the extension is switched on and off.
#pragma once

#include <string>
#include <utility>

#include "programs/gtk-settings/GtkSettingsText.h"

namespace publishing {

// Both changes are made as a whole or not at all. A file that is a symbolic link stays one; its
// target changes. Both throw PrintError (Trouble) when the file cannot be read or changed, or when
// GTK would not read it; it is then as it was.
class GtkSettingsFile {
 public:
  enum class Change { None, Written, Removed };

  // `remedy`: what the user can do when permissions are missing, a sentence for the message.
  GtkSettingsFile(std::string path, std::string remedy)
      : path_(std::move(path)), remedy_(std::move(remedy)) {}

  [[nodiscard]] const std::string& path() const { return path_; }

  // See GtkSettingsText. File and folder are made when missing.
  [[nodiscard]] Change enable(const std::string& inherited) const;
  [[nodiscard]] Change disable() const;

 private:
  std::string path_;
  std::string remedy_;
};

}  // namespace publishing
