// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/PrintError.h"
#include "printing/presets/Preset.h"

namespace publishing {

struct StoredPreset {
  Preset preset;
  bool isShared = false;  // the administrator gives it to all users
  std::string file;
  std::vector<std::string> warnings;  // for the user: what was ignored in the file
};

// The presets that a user has: the user's own, and the administrator's, which they hide when they
// have the same name. Each is a file *.preset; what it is called lies in it, not in the file's
// name.
//
// Names are the same in any case of their letters (keyOfPreset). Files are untrusted; those of
// others than the user and the administrator are not used. A file is written as a whole or not at
// all.
class Presets {
 public:
  // "publishing/presets" below the user's configuration folder.
  static std::string defaultFolder();

  // The same below the system's configuration folders, the most important first.
  static std::vector<std::string> defaultSharedFolders();

  explicit Presets(std::string folder = defaultFolder(),
                   std::vector<std::string> sharedFolders = defaultSharedFolders());

  struct Listing {
    std::vector<StoredPreset> presets;  // by name
    std::vector<std::string> warnings;  // for the user: files that could not be used

    // Nothing when there is none of that name.
    [[nodiscard]] std::optional<StoredPreset> named(const std::string& name) const;
  };

  // Never throws for what it finds.
  [[nodiscard]] Listing list() const;

  // Throws PrintError: Refused when there is none of that name, with the names that there are;
  // Trouble when its file cannot be used, with the reason, whoever else has one of that name.
  [[nodiscard]] StoredPreset find(const std::string& name) const;

  // Whether the user has a preset of that name, sound or not.
  [[nodiscard]] bool hasOwn(const std::string& name) const;

  enum class Existing { Keep, Replace };

  // Stores it for the user, in a folder of mode 0700, a file of mode 0600. Throws PrintError:
  // Refused when the user has a preset of that name that is to be kept, also when another program
  // stored it a moment ago; as textOf does; Trouble when it cannot be written.
  void store(const Preset& preset, Existing existing) const;

  // Deletes the user's preset of that name, sound or not. Throws PrintError: Refused when there is
  // none, or only the administrator's; Trouble when it cannot be deleted.
  void remove(const std::string& name) const;

 private:
  struct Folder {
    std::string path;
    bool isShared;
  };
  struct Scan;

  static std::optional<std::string> faultOf(const Folder& folder);
  static Scan scan(const Folder& folder);
  [[nodiscard]] std::vector<std::string> ownFilesOf(const std::string& key) const;
  [[nodiscard]] PrintError noSuchPreset(const std::string& name) const;

  std::vector<Folder> folders_;  // the user's first
};

// Writes it as a file of its own, to be given to others. Throws PrintError: Refused when there is a
// file that is to be kept, Trouble when it cannot be written.
void exportPreset(const Preset& preset, const std::string& path, Presets::Existing existing);

}  // namespace publishing
