// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/DuplexOption.h"

#include <string_view>

#include "Publishing/ppd/PPDFields.h"

#ifdef PUBLISHING_SANITIZE
// libcups 2.4.2 never frees the names of the duplex choices in its cache of a PPD (later versions
// do).
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:_ppdCacheCreateWithPPD\n";
}
#endif

namespace publishing {
namespace {

std::optional<Sides> sidesOf(std::string_view choice) {
  if (choice == "None" || choice == "Off" || choice == "False") return Sides::OneSided;
  if (choice == "DuplexNoTumble" || choice == "LongEdge" || choice == "Top")
    return Sides::TwoSidedLongEdge;
  if (choice == "DuplexTumble" || choice == "ShortEdge" || choice == "Bottom")
    return Sides::TwoSidedShortEdge;
  return std::nullopt;
}

}  // namespace

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
