// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelOptions.h"

#include <cstdint>
#include <vector>

#include "Publishing/PublishingKeys.h"
#include "Publishing/parseNum.h"

namespace publishing {
namespace {

std::string listedPages(const PublishingSettings& state, bool twoSided) {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  ParsePageNumber(state.pageNumValue, &pages, &count, twoSided, state.covermodeValue, kHighestPage,
                  kMostPages);
  std::string list;
  for (const std::int32_t page : pages)
    list += std::to_string(page) + ',';
  return list;
}

}  // namespace

void addPanelOptions(JobTicket::Options& options, const PublishingSettings& state, bool twoSided,
                     const std::string& coverMedium, const std::string& insertMedium) {
  const bool covers = state.covermodeEnableState == 1;
  options[kCoverModeState] = covers ? kStoredOn : kStoredOff;
  if (covers) {
    options[kCoverModeValue] = std::to_string(state.covermodeValue);
    options[kCovermodeRadioButtonState] = std::to_string(state.covermodeRadioButtonState);
    options[cCoverMediaType] = coverMedium;
  }
  const bool inserts = state.pageinsertEnableState == 1;
  options[kPageinsertState] = inserts ? kStoredOn : kStoredOff;
  if (inserts) {
    options[kPageinsertValue] = std::to_string(state.pageinsertValue);
    options[kPageinsertNums] = listedPages(state, twoSided);
    options[cPageMediaType] = insertMedium;
  }
}

}  // namespace publishing
