// SPDX-License-Identifier: Apache-2.0
// What the panel remembers from one job to the next: one key file for each print queue of a user.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "Publishing/PublishingFeatures.h"

namespace publishing {

// Only the panel's own keys, the two media choices that it pushes ("CoverMediaType",
// "PageMediaType"), their texts, and that nothing is to be remembered are stored. Files are written
// as a whole or not at all, so that of two programs that store at once the last one wins and nobody
// ever reads a mixture. Files are untrusted: they may be another program's, an older version's or
// damaged.
class StoredSettings {
 public:
  using Values = std::map<std::string, std::string>;

  struct Loaded {
    Values values;                      // sound entries only
    std::vector<std::string> warnings;  // for the user: file, reason, and what was done about it
  };

  // The key that is stored, as kStoredOff, for a queue of which the user wants nothing remembered;
  // then alone. Settings that are stored later replace it.
  static constexpr const char* kRemember = "Remember";

  // Where the text of a feature's medium is stored, beside its keyword: "CoverMediaTypeText".
  static std::string mediumTextKey(const PublishingFeature& feature) {
    return std::string(feature.option) + "Text";
  }

  // "publishing" below $XDG_CONFIG_HOME (~/.config when that is not set).
  static std::string defaultFolder();

  explicit StoredSettings(std::string folder = defaultFolder()) : folder_(std::move(folder)) {}

  // What was stored for the queue; nothing, without a warning, when there is no file. Never throws
  // for what it finds: unknown keys and unsound values are reported and left out; a file that is no
  // key file is renamed to the first free "FILE.broken-1", "-2", ... and reported.
  [[nodiscard]] Loaded load(const std::string& queue) const;

  // Stores those of `values` that are to be stored and forgets the panel's other keys; keys in the
  // file that are unknown to this program stay. What could not be understood is kept aside first.
  // The folder is created with mode 0700, files have mode 0600. Throws PrintError (Trouble) when
  // the settings cannot be written; the earlier ones then still stand. Throws PrintError (Refused)
  // for a value that load would not take back.
  void store(const std::string& queue, const Values& values) const;

  // Forgets the queue's settings; false when there were none. Throws PrintError (Trouble).
  [[nodiscard]] bool clear(const std::string& queue) const;

  // The queue's file; the name is encoded so that every queue name makes a file name of its own.
  [[nodiscard]] std::string fileOf(const std::string& queue) const;

 private:
  std::string folder_;
};

}  // namespace publishing
