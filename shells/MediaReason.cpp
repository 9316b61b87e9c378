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

}  // namespace

void offerReplacements(const PublishingPDE& panel, const PanelControls& controls) {
  for (const PublishingFeature& feature : kFeatures) {
    PopUpButton& popUp = controls.popUp(feature.popUp);
    for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
      if (popUp.isItemEnabledAtIndex(index)) continue;
      const auto forbidding = panel.choicesForbiddingMedia(feature.option, index);
      const bool isReplaced =
          !forbidding.empty() &&
          std::all_of(forbidding.begin(), forbidding.end(),
                      [&](const auto& marked) { return marked.option == feature.option; });
      if (isReplaced) popUp.setItemEnabledAtIndex(index, true);
    }
  }
}

std::string reasonAgainstMedia(const PublishingPDE& panel, const Printer& printer,
                               const char* mediaOption, std::int64_t index) {
  std::string sides;
  for (const auto& marked : panel.choicesForbiddingMedia(mediaOption, index)) {
    if (marked.option == mediaOption) continue;
    sides += (sides.empty() ? "" : ", ") + describe(printer, marked);
  }
  return sides.empty() ? sides : translated("conflicts with %s", sides);
}

}  // namespace publishing
