// SPDX-License-Identifier: Apache-2.0
#include "shells/MediaReason.h"

#include <algorithm>

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"

namespace publishing {
namespace {

// The choice as a user reads it, "Media Type: Transparency"; keywords where the PPD has no texts.
std::string describe(const Printer& printer, const PPDInfo::MarkedChoice& marked) {
  const auto choice = printer.ppd()->choice(marked.option, marked.choice);
  if (choice) return choice->optionText + ": " + choice->choiceText;
  return shown(marked.option + ": " + marked.choice);
}

// A medium that picking another one would replace, or that of a feature that is off.
bool isIdle(const PPDInfo::MarkedChoice& marked, const PublishingSettings& state,
            const char* mediaOption) {
  if (marked.option == mediaOption) return true;
  if (marked.option == kCoverMode.option) return state.covermodeEnableState != 1;
  return marked.option == kPageInsert.option && state.pageinsertEnableState != 1;
}

}  // namespace

void offerAgain(const PublishingPDE& panel, const PanelControls& controls) {
  for (const PublishingFeature& feature : kFeatures) {
    PopUpButton& popUp = controls.popUp(feature.popUp);
    for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
      if (popUp.isItemEnabledAtIndex(index)) continue;
      const auto forbidding = panel.choicesForbiddingMedia(feature.option, index);
      const bool areIdle = std::all_of(
          forbidding.begin(), forbidding.end(),
          [&](const auto& marked) { return isIdle(marked, panel.state(), feature.option); });
      if (!forbidding.empty() && areIdle) popUp.setItemEnabledAtIndex(index, true);
    }
  }
}

std::string reasonAgainstMedia(const PublishingPDE& panel, const Printer& printer,
                               const char* mediaOption, std::int64_t index) {
  std::string sides;
  for (const auto& marked : panel.choicesForbiddingMedia(mediaOption, index)) {
    if (isIdle(marked, panel.state(), mediaOption)) continue;
    sides += (sides.empty() ? "" : ", ") + describe(printer, marked);
  }
  return sides.empty() ? sides : translated("conflicts with %s", sides);
}

}  // namespace publishing
