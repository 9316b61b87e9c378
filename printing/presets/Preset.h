// SPDX-License-Identifier: Apache-2.0
// The panel's choices under a name, by what they mean: no index and no state of a printer's menus,
// so that they can be taken to another printer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Publishing/PublishingSettings.h"
#include "printing/StoredSettings.h"

namespace publishing {

// A side of a cover or an inserted sheet by its word, and its bit in the panel's value.
struct SideWord {
  const char* word;
  std::int64_t bit;
};

inline constexpr SideWord kCoverSideWords[] = {{"front-outside", kFrontOutside},
                                               {"front-inside", kFrontInside},
                                               {"back-outside", kBackOutside},
                                               {"back-inside", kBackInside}};
inline constexpr SideWord kInsertSideWords[] = {{"front", kPrintOnFront}, {"back", kPrintOnBack}};

inline constexpr const char* kNoCover = "none";
inline constexpr const char* kFrontCover = "front";
inline constexpr const char* kBothCovers = "front-back";
inline constexpr const char* kNoInserts = "none";

struct Preset {
  // A choice of the PPD; the text finds it on printers that name it otherwise.
  struct Medium {
    std::string keyword = {};
    std::string text = {};

    bool operator==(const Medium&) const = default;
  };

  std::string name = {};

  std::string cover = kNoCover;
  Medium coverMedium = {};                   // empty without a cover
  std::vector<std::string> coverSides = {};  // that are printed, by kCoverSideWords

  std::string insert = kNoInserts;  // pages and ranges
  Medium insertMedium = {};         // empty without inserts
  std::vector<std::string> insertSides = {};

  bool operator==(const Preset&) const = default;

  [[nodiscard]] bool hasCover() const { return cover != kNoCover; }
  [[nodiscard]] bool hasInserts() const { return insert != kNoInserts; }
};

// Why a preset cannot have the name, for the user; nothing when it can. A name is text in one line,
// of 1 to 100 characters, that neither begins nor ends with a blank.
std::optional<std::string> faultOfPresetName(const std::string& name);

// Presets whose names have the same key are the same preset: letters count in any case, and however
// their accents are encoded. `name` is a sound one.
std::string keyOfPreset(const std::string& name);

// The preset of what toRemember made of the panel's settings.
Preset presetOf(const std::string& name, const StoredSettings::Values& values);

// What fittedTo takes to a printer.
StoredSettings::Values valuesOf(const Preset& preset);

// The sides that a one-sided job cannot print.
std::vector<std::string> sidesThatNeedTwoSided(const Preset& preset);

}  // namespace publishing
