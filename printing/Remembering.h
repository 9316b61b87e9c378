// SPDX-License-Identifier: Apache-2.0
// What is remembered of the panel from one job to the next, fitted to the printer of the next job.
//
// Media are remembered by keyword and text: a choice's index, which is all that the panel restores,
// is another choice's as soon as the PPD gets one more. Page lists are remembered as ranges,
// because the panel does not accept again what it stores (asRanges).
#pragma once

#include <string>
#include <vector>

#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "printing/StoredSettings.h"

namespace publishing {

struct Remembered {
  StoredSettings::Values values;      // for the job's ticket, before the panel is restored from it
  std::vector<std::string> warnings;  // for the user: what is wrong with the stored settings
  std::vector<std::string> losses;    // for the user: media that the printer no longer has
  bool isSwitchedOff = false;         // the user wants nothing remembered for the printer
};

// Where settings come from that are made to fit a printer.
enum class SettingsFrom { Memory, Preset };

// Makes settings that were remembered, or that come from a preset, fit the printer's PPD: each
// medium gets its present index, found by keyword or else by text. Where the printer does not have
// it, a loss names it, and its feature is off in the values. What is remembered of a feature that
// is off has no medium.
Remembered fittedTo(const Printer& printer, StoredSettings::Values values,
                    SettingsFrom from = SettingsFrom::Memory);

// What the store has for the printer, fitted to it.
Remembered recall(const StoredSettings& store, const Printer& printer);

// Settings that the panel saved, as they are to be remembered for the printer or put into a preset:
// the panel's only, with the texts of media, and page lists as ranges.
StoredSettings::Values toRemember(const Printer& printer, const JobTicket::Options& settings);

// Whether values that were loaded say that nothing is to be remembered.
[[nodiscard]] bool isSwitchedOff(const StoredSettings::Values& values);

// Forgets what is stored for the printer, and remembers nothing more until remember() is called.
// Throws as StoredSettings::store does.
void switchOffRemembering(const StoredSettings& store, const std::string& printer);

// Stores them for the printer. Of the `kept` features, what is stored already stays. Throws as
// StoredSettings::store does.
void remember(const StoredSettings& store, const Printer& printer,
              const JobTicket::Options& settings, const std::vector<PublishingFeature>& kept = {});

}  // namespace publishing
