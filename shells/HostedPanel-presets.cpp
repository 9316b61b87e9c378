// SPDX-License-Identifier: Apache-2.0
// The panel's choices taken from a preset, and made one.
#include <iterator>

#include "base/Translation.h"
#include "printing/Remembering.h"
#include "shells/HostedPanel.h"

namespace publishing {

std::vector<std::string> HostedPanel::take(const Preset& preset) {
  Remembered fitted = fittedTo(*printer_, valuesOf(preset), SettingsFrom::Preset);
  JobTicket wished;
  for (const auto& [key, value] : fitted.values)
    wished.setValue(key, value);
  want(PanelWish(wished));
  std::vector<std::string> missing = std::move(fitted.losses);
  if (isForbiddenByLayout() && (preset.hasCover() || preset.hasInserts())) {
    missing.push_back(
        translated("Covers and inserts cannot be combined with reverse output order or several "
                   "pages per side."));
  } else if (job_.sides == Sides::OneSided && !sidesThatNeedTwoSided(preset).empty()) {
    missing.push_back(translated("Some sides that the preset prints need two-sided printing."));
  }
  return missing;
}

bool HostedPanel::isForbiddenByLayout() const {
  return isForbidden(kCoverMode) || isForbidden(kPageInsert);
}

Preset HostedPanel::asPreset(const std::string& name, const JobTicket::Options& settings) const {
  return presetOf(name, toRemember(*printer_, settings));
}

}  // namespace publishing
