// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/Preset.h"

#include <algorithm>
#include <cstdlib>
#include <span>

#include <glib.h>

#include "base/GlibHandles.h"
#include "base/Translation.h"

namespace publishing {
namespace {

using Values = StoredSettings::Values;

constexpr glong kLongestName = 100;  // characters
constexpr const char* kOneCover = "1";
constexpr const char* kTwoCovers = "2";

std::string valueOf(const Values& values, const std::string& key) {
  const auto found = values.find(key);
  return found != values.end() ? found->second : std::string();
}

std::vector<std::string> wordsOf(std::span<const SideWord> sides, const std::string& value) {
  const std::int64_t bits = std::strtoll(value.c_str(), nullptr, 10);
  std::vector<std::string> words;
  for (const SideWord& side : sides) {
    if ((bits & side.bit) != 0) words.emplace_back(side.word);
  }
  return words;
}

std::int64_t bitsOf(std::span<const SideWord> sides, const std::vector<std::string>& words) {
  std::int64_t bits = 0;
  for (const SideWord& side : sides) {
    if (std::find(words.begin(), words.end(), side.word) != words.end()) bits |= side.bit;
  }
  return bits;
}

Preset::Medium mediumOf(const Values& values, const PublishingFeature& feature) {
  return {valueOf(values, feature.option), valueOf(values, StoredSettings::mediumTextKey(feature))};
}

void putMedium(Values& values, const PublishingFeature& feature, const Preset::Medium& medium) {
  values[feature.option] = medium.keyword;
  if (!medium.text.empty()) values[StoredSettings::mediumTextKey(feature)] = medium.text;
}

}  // namespace

std::optional<std::string> faultOfPresetName(const std::string& name) {
  if (name.empty()) return translated("A preset needs a name.");
  if (g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) == FALSE) {
    return translated("The name \"%s\" is not valid UTF-8 text.", shown(name));
  }
  if (g_utf8_strlen(name.c_str(), -1) > kLongestName) {
    return translated("The name \"%s\" is longer than %d characters.", shown(name),
                      static_cast<int>(kLongestName));
  }
  if (name != shownLines(name) || name.find('\n') != std::string::npos) {
    return translated("The name \"%s\" has characters that cannot be shown.", shown(name));
  }
  const GlibText stripped(g_strstrip(g_strdup(name.c_str())));
  if (name == stripped.get()) return std::nullopt;
  return translated("The name \"%s\" begins or ends with a space.", shown(name));
}

std::string keyOfPreset(const std::string& name) {
  const GlibText composed(g_utf8_normalize(name.c_str(), -1, G_NORMALIZE_NFC));
  const GlibText folded(g_utf8_casefold(composed.get(), -1));
  const GlibText key(g_utf8_normalize(folded.get(), -1, G_NORMALIZE_NFC));
  return key.get();
}

Preset presetOf(const std::string& name, const Values& values) {
  Preset preset;
  preset.name = name;
  const std::string covers = valueOf(values, kCovermodeRadioButtonState);
  const bool isCovered = covers == kOneCover || covers == kTwoCovers;
  if (valueOf(values, kCoverModeState) == kStoredOn && isCovered) {
    preset.cover = covers == kTwoCovers ? kBothCovers : kFrontCover;
    preset.coverMedium = mediumOf(values, kCoverMode);
    preset.coverSides = wordsOf(kCoverSideWords, valueOf(values, kCoverModeValue));
  }
  const std::string list = valueOf(values, kPageinsertNums);
  if (valueOf(values, kPageinsertState) == kStoredOn && !list.empty()) {
    preset.insert = list;
    preset.insertMedium = mediumOf(values, kPageInsert);
    preset.insertSides = wordsOf(kInsertSideWords, valueOf(values, kPageinsertValue));
  }
  return preset;
}

Values valuesOf(const Preset& preset) {
  Values values = {{kCoverModeState, kStoredOff}, {kPageinsertState, kStoredOff}};
  if (preset.hasCover()) {
    const bool isBoth = preset.cover == kBothCovers;
    const std::int64_t bits = bitsOf(kCoverSideWords, preset.coverSides);
    const std::int64_t noSide = isBoth ? kNoSideOfBothCovers : kNoSideOfFrontCover;
    values[kCoverModeState] = kStoredOn;
    values[kCovermodeRadioButtonState] = isBoth ? kTwoCovers : kOneCover;
    values[kCoverModeValue] = std::to_string(bits != 0 ? bits : noSide);
    putMedium(values, kCoverMode, preset.coverMedium);
  }
  if (preset.hasInserts()) {
    values[kPageinsertState] = kStoredOn;
    values[kPageinsertNums] = preset.insert;
    values[kPageinsertValue] = std::to_string(bitsOf(kInsertSideWords, preset.insertSides));
    putMedium(values, kPageInsert, preset.insertMedium);
  }
  return values;
}

// Front outside, back inside and an insert's front face up.
std::vector<std::string> sidesThatNeedTwoSided(const Preset& preset) {
  std::vector<std::string> sides;
  const auto take = [&sides](const std::vector<std::string>& words, const char* word) {
    if (std::find(words.begin(), words.end(), word) != words.end()) sides.emplace_back(word);
  };
  take(preset.coverSides, "front-inside");
  take(preset.coverSides, "back-outside");
  take(preset.insertSides, "back");
  return sides;
}

}  // namespace publishing
