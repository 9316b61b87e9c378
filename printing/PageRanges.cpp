// SPDX-License-Identifier: Apache-2.0
#include "printing/PageRanges.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "Publishing/parseNum.h"

namespace publishing {
namespace {

constexpr std::size_t kLongestRange = kMostPages;

// Of a run that has `left` pages to go, how many the next range takes. It leaves none alone.
std::size_t nextRange(std::size_t left) {
  return left == kLongestRange + 1 ? kLongestRange - 1 : std::min(left, kLongestRange);
}

void append(std::string& list, const std::string& item) {
  list += (list.empty() ? "" : ",") + item;
}

}  // namespace

std::string asRanges(const std::string& list) {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  // Without a limit of their number, and from the lowest page that any job accepts.
  if (ParsePageNumber(list, &pages, &count, false, 0, kHighestPage, kHighestPage) != kPageListOK) {
    return list;
  }
  std::string ranges;
  std::string singles;
  for (std::size_t first = 0; first < pages.size();) {
    std::size_t end = first + 1;
    while (end < pages.size() && pages[end] == pages[end - 1] + 1)
      ++end;
    if (end == first + 1) {
      append(singles, std::to_string(pages[first]));
      first = end;
      continue;
    }
    while (first < end) {
      const std::size_t length = nextRange(end - first);
      append(ranges,
             std::to_string(pages[first]) + "-" + std::to_string(pages[first + length - 1]));
      first += length;
    }
  }
  if (!singles.empty()) append(ranges, singles);
  return ranges;
}

}  // namespace publishing
