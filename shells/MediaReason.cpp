// SPDX-License-Identifier: Apache-2.0
#include "shells/MediaReason.h"

#include <algorithm>
#include <iterator>

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"

namespace publishing {
namespace {

constexpr const char* kNone = "None";

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

std::optional<std::int64_t> placeOfNone(const Printer& printer, const char* mediaOption) {
  if (!printer.ppd()->choice(mediaOption, kNone)) return std::nullopt;
  const auto choices = printer.ppd()->choices(mediaOption);
  const auto none = std::find_if(choices.begin(), choices.end(),
                                 [](const PPDChoice& choice) { return choice.choice == kNone; });
  return none - choices.begin();
}

void withholdNone(const PublishingPDE& panel, const Printer& printer,
                  const PanelControls& controls) {
  const bool areOn[] = {panel.state().covermodeEnableState == 1,
                        panel.state().pageinsertEnableState == 1};
  for (std::size_t i = 0; i < std::size(kFeatures); ++i) {
    const auto none = placeOfNone(printer, kFeatures[i].option);
    if (none) controls.popUp(kFeatures[i].popUp).setItemEnabledAtIndex(*none, !areOn[i]);
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
