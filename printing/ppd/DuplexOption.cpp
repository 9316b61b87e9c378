// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/DuplexOption.h"

#include <algorithm>
#include <iterator>

#include "Publishing/ppd/OffChoices.h"
#include "Publishing/ppd/PPDFields.h"

namespace publishing {
namespace {

std::optional<Sides> sidesOf(std::string_view choice) {
  if (switchesOff(choice)) return Sides::OneSided;
  if (choice == "DuplexNoTumble" || choice == "LongEdge" || choice == "Top")
    return Sides::TwoSidedLongEdge;
  if (choice == "DuplexTumble" || choice == "ShortEdge" || choice == "Bottom")
    return Sides::TwoSidedShortEdge;
  return std::nullopt;
}

}  // namespace

bool isDuplexOption(std::string_view name) {
  return std::find(std::begin(kDuplexOptions), std::end(kDuplexOptions), name) !=
         std::end(kDuplexOptions);
}

const ppd_choice_t* markedDuplexChoice(ppd_file_t* ppd) {
  for (const char* option : kDuplexOptions) {
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd, option);
    if (marked != nullptr && sidesOf(boundedView(marked->choice))) return marked;
  }
  return nullptr;
}

std::optional<Sides> markedSidesOf(ppd_file_t* ppd) {
  const ppd_choice_t* marked = markedDuplexChoice(ppd);
  return marked == nullptr ? std::nullopt : sidesOf(boundedView(marked->choice));
}

}  // namespace publishing
