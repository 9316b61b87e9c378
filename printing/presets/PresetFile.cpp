// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/PresetFile.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

#include <glib.h>

#include "base/GlibHandles.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/StoredValues.h"

namespace publishing {
namespace {

constexpr const char* kGroup = "Publishing Preset";
constexpr const char* kVersion = "1";
constexpr std::size_t kLargestFile = 65536;  // bytes; a sound file has less than 4 KiB
constexpr const char* kNone = "none";

constexpr const char* kVersionKey = "Version";
constexpr const char* kNameKey = "Name";
constexpr const char* kCoverKey = "Cover";
constexpr const char* kInsertKey = "Insert";

// Where a feature's medium and sides stand.
struct FeatureKeys {
  const char* medium;
  const char* text;
  const char* sides;
  const char* option;  // whose choice the medium is
  std::span<const SideWord> words;
};
constexpr FeatureKeys kCoverKeys = {"CoverMedia", "CoverMediaText", "CoverSides", cCoverMediaType,
                                    kCoverSideWords};
constexpr FeatureKeys kInsertKeys = {"InsertMedia", "InsertMediaText", "InsertSides",
                                     cPageMediaType, kInsertSideWords};

[[noreturn]] void fail(const std::string& fault) {
  throw PrintError::trouble(fault);
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words)
    text += (text.empty() ? "" : ",") + word;
  return text.empty() ? kNone : text;
}

// The entries of a preset file.
class Entries {
 public:
  explicit Entries(const std::string& text) {
    GError* failure = nullptr;
    if (g_key_file_load_from_data(file_.get(), text.data(), text.size(),
                                  G_KEY_FILE_KEEP_TRANSLATIONS, &failure) == FALSE) {
      fail(shown(GlibError(failure)->message) + ".");
    }
    if (g_key_file_has_group(file_.get(), kGroup) == FALSE) {
      fail(translated("It has no section [%s].", kGroup));
    }
  }

  // Empty when it is missing.
  std::string take(const char* key) {
    known_.emplace_back(key);
    GError* failure = nullptr;
    const GlibText value(g_key_file_get_string(file_.get(), kGroup, key, &failure));
    const GlibError error(failure);
    if (error == nullptr) return value.get();
    if (g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_KEY_NOT_FOUND)) return {};
    fail(translated("The entry %s is not valid UTF-8 text, or has an unknown escape.", key));
  }

  // One of the words; "none" when it is missing.
  std::string takeWord(const char* key, std::initializer_list<std::string_view> words) {
    const std::string word = take(key);
    if (word.empty()) return kNone;
    if (std::find(words.begin(), words.end(), word) == words.end()) failWord(key, word);
    return word;
  }

  std::vector<std::string> takeSides(const FeatureKeys& keys) {
    const std::string list = take(keys.sides);
    std::vector<std::string> sides;
    if (list.empty() || list == kNone) return sides;
    const GlibTexts words(g_strsplit(list.c_str(), ",", -1));
    for (char** word = words.get(); *word != nullptr; ++word) {
      const bool isKnown = std::any_of(
          keys.words.begin(), keys.words.end(),
          [word](const SideWord& side) { return std::string_view(*word) == side.word; });
      if (!isKnown) failWord(keys.sides, *word);
    }
    // Each once, in the order of the table.
    for (const SideWord& side : keys.words) {
      if (g_strv_contains(words.get(), side.word) != FALSE) sides.emplace_back(side.word);
    }
    return sides;
  }

  Preset::Medium takeMedium(const FeatureKeys& keys) {
    const Preset::Medium medium = {take(keys.medium), take(keys.text)};
    if (medium.keyword.empty()) fail(translated("The entry %s is missing.", keys.medium));
    if (const auto fault = faultOfStoredOption(keys.option, medium.keyword)) fail(*fault);
    if (const auto fault = faultOfStoredText(keys.text, medium.text)) fail(*fault);
    return medium;
  }

  // Of a feature that the preset does not have.
  void skip(const FeatureKeys& keys) {
    for (const char* key : {keys.medium, keys.text, keys.sides})
      known_.emplace_back(key);
  }

  [[nodiscard]] std::vector<std::string> unknown() const {
    std::vector<std::string> warnings;
    const GlibTexts groups(g_key_file_get_groups(file_.get(), nullptr));
    for (char** group = groups.get(); *group != nullptr; ++group) {
      const GlibTexts keys(g_key_file_get_keys(file_.get(), *group, nullptr, nullptr));
      for (char** key = keys.get(); key != nullptr && *key != nullptr; ++key) {
        const bool isKnown = std::string_view(*group) == kGroup &&
                             std::find(known_.begin(), known_.end(), *key) != known_.end();
        if (isKnown) continue;
        warnings.push_back(translated("The entry %s is unknown and was ignored.", shown(*key)));
      }
    }
    return warnings;
  }

 private:
  [[noreturn]] static void failWord(const char* key, const std::string& word) {
    fail(translated("The entry %s does not take \"%s\".", key, shown(word)));
  }

  GlibKeyFile file_{g_key_file_new()};
  std::vector<std::string> known_;
};

void checkVersion(const std::string& version) {
  if (version == kVersion) return;
  if (version.empty()) fail(translated("The entry %s is missing.", kVersionKey));
  fail(translated(
      "It has the version \"%s\" of the format, and only %s is known. A newer version of "
      "this program may know it.",
      shown(version), kVersion));
}

void checkSides(const Preset& preset) {
  if (preset.cover != kFrontCover) return;
  for (const std::string& side : preset.coverSides) {
    if (!side.starts_with("back")) continue;
    fail(translated("The side %s needs a back cover (Cover=front-back).", side));
  }
}

void put(GKeyFile* file, const char* key, const std::string& value) {
  if (!value.empty()) g_key_file_set_string(file, kGroup, key, value.c_str());
}

void putFeature(GKeyFile* file, const FeatureKeys& keys, const Preset::Medium& medium,
                const std::vector<std::string>& sides) {
  put(file, keys.medium, medium.keyword);
  put(file, keys.text, medium.text);
  put(file, keys.sides, joined(sides));
}

}  // namespace

ReadPreset parsePreset(const std::string& text) {
  Entries entries(text);
  checkVersion(entries.take(kVersionKey));
  ReadPreset read;
  Preset& preset = read.preset;
  preset.name = entries.take(kNameKey);
  if (const auto fault = faultOfPresetName(preset.name)) fail(*fault);
  preset.cover = entries.takeWord(kCoverKey, {kNoCover, kFrontCover, kBothCovers});
  if (preset.hasCover()) {
    preset.coverMedium = entries.takeMedium(kCoverKeys);
    preset.coverSides = entries.takeSides(kCoverKeys);
    checkSides(preset);
  } else {
    entries.skip(kCoverKeys);
  }
  const std::string insert = entries.take(kInsertKey);
  preset.insert = insert.empty() ? kNoInserts : insert;
  if (preset.hasInserts()) {
    if (const auto fault = faultOfStoredPageList(kInsertKey, insert)) fail(*fault);
    preset.insertMedium = entries.takeMedium(kInsertKeys);
    preset.insertSides = entries.takeSides(kInsertKeys);
  } else {
    entries.skip(kInsertKeys);
  }
  read.warnings = entries.unknown();
  return read;
}

ReadPreset readPresetFile(const std::string& path) {
  const TextFile contents = readTextFile(path, kLargestFile);
  std::string fault = contents.fault;
  if (contents.isMissing()) fault = translated("there is no such file");
  if (!fault.empty()) fail(translated("%s cannot be read as a preset: %s.", shown(path), fault));
  try {
    ReadPreset read = parsePreset(contents.text);
    for (std::string& warning : read.warnings)
      warning = translated("%s: %s", shown(path), warning);
    return read;
  } catch (const PrintError& error) {
    fail(translated("%s is not a valid preset. %s", shown(path), error.what()));
  }
}

std::string textOf(const Preset& preset) {
  const GlibKeyFile file(g_key_file_new());
  put(file.get(), kVersionKey, kVersion);
  put(file.get(), kNameKey, preset.name);
  put(file.get(), kCoverKey, preset.cover);
  if (preset.hasCover()) putFeature(file.get(), kCoverKeys, preset.coverMedium, preset.coverSides);
  put(file.get(), kInsertKey, preset.insert);
  if (preset.hasInserts()) {
    putFeature(file.get(), kInsertKeys, preset.insertMedium, preset.insertSides);
  }
  const GlibText text(g_key_file_to_data(file.get(), nullptr, nullptr));
  try {
    if (parsePreset(text.get()).preset == preset) return text.get();
  } catch (const PrintError& error) {
    throw PrintError::refused(error.what());
  }
  throw PrintError::refused(
      translated("The preset \"%s\" cannot be stored as a file.", shown(preset.name)));
}

}  // namespace publishing
