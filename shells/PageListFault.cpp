// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListFault.h"

#include <algorithm>
#include <vector>

#include "Publishing/PageListAlert.h"
#include "Publishing/PublishingSettings.h"
#include "Publishing/parseNum.h"
#include "base/Translation.h"

namespace publishing {
namespace {

constexpr std::int64_t kBothFrontSides = kFrontOutside | kFrontInside;

std::string reasonOf(std::int32_t result, const std::string& entry, std::int64_t coverSides) {
  // To the panel the missing end of a range is 0.
  const bool isHalf = entry.front() == '-' || entry.back() == '-';
  switch (isHalf ? kPageListMalformed : result) {
    case kPageListOutOfBounds:
      return translated("“%s” is not between page %d and page %d.", entry,
                        (coverSides & kBothFrontSides) == kBothFrontSides ? 3 : 2, kHighestPage);
    case kPageListTooLong:
      return translated(
          "“%s” is too much: a list takes at most %d single pages, and a range at most %d pages "
          "minus the single pages listed before it.",
          entry, kMostPages, kMostPages);
    case kPageListEmptyRange:
      return translated("“%s” does not lead from a lower page to a higher one.", entry);
    default:
      return translated("“%s” is neither a page nor a range of pages such as 12-14.", entry);
  }
}

}  // namespace

std::optional<PageListFault> faultInPages(const std::string& list, bool twoSided,
                                          std::int64_t coverSides) {
  if (list.empty()) return PageListFault();
  if (list.front() == ',') {
    return PageListFault{0, 1, translated("The list must begin with a page.")};
  }
  for (std::size_t first = 0; first < list.size();) {
    const std::size_t end = std::min(list.find(',', first), list.size());
    std::vector<std::int32_t> pages;
    std::int32_t count = 0;
    const std::int32_t result = ParsePageNumber(list.substr(0, end), &pages, &count, twoSided,
                                                coverSides, kHighestPage, kMostPages);
    // A list that begins with something else than a page is not even parsed by the panel.
    const bool isNoPage = first == 0 && alertForPageText(list).has_value();
    if (result != kPageListOK || isNoPage) {
      const std::string entry = list.substr(first, end - first);
      return PageListFault{first, end - first,
                           reasonOf(isNoPage ? kPageListMalformed : result, entry, coverSides)};
    }
    first = end + 1;
  }
  return std::nullopt;
}

}  // namespace publishing
