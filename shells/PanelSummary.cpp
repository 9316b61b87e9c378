// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelSummary.h"

#include "base/Translation.h"

namespace publishing {

// Whole texts, because "on" agrees with the feature in many languages.
std::string summaryOf(const PublishingSettings& state, const std::string& separator) {
  const char* const covers =
      state.covermodeEnableState == 1 ? N_("Cover Mode: On") : N_("Cover Mode: Off");
  const char* const inserts =
      state.pageinsertEnableState == 1 ? N_("Page Insert: On") : N_("Page Insert: Off");
  return translated(covers) + separator + translated(inserts);
}

}  // namespace publishing
