// SPDX-License-Identifier: Apache-2.0
#include "printing/PageListText.h"

#include <cstddef>

#include "base/Translation.h"

namespace publishing {
namespace {

// More than these do not help anybody.
constexpr std::size_t kMostEntries = 20;
constexpr std::size_t kFewestInRange = 3;
constexpr const char* kDash = "\u2013";
constexpr const char* kDots = "\u2026";

std::string withComma(const std::string& list, const std::string& next) {
  // TRANSLATORS: Two parts of a list with more than two.
  return list.empty() ? next : translated("%1$s, %2$s", list, next);
}

// How many pages from `first` on follow each other.
std::size_t runAt(const std::vector<int>& pages, std::size_t first) {
  std::size_t end = first + 1;
  while (end < pages.size() && pages[end] - pages[end - 1] == 1)
    ++end;
  return end - first;
}

}  // namespace

std::string joinedText(const std::vector<std::string>& parts) {
  std::string list;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool isLast = i > 0 && i + 1 == parts.size();
    // TRANSLATORS: The last two parts of a list; the first may be a list with commas.
    list = isLast ? translated("%1$s and %2$s", list, parts[i]) : withComma(list, parts[i]);
  }
  return list;
}

std::string pageListText(const std::vector<int>& pages) {
  std::vector<std::string> entries;
  for (std::size_t first = 0; first < pages.size();) {
    const std::size_t run = runAt(pages, first);
    const bool isRange = run >= kFewestInRange;
    std::string entry = std::to_string(pages[first]);
    if (isRange) entry += kDash + std::to_string(pages[first + run - 1]);
    entries.push_back(std::move(entry));
    first += isRange ? run : 1;
  }
  if (entries.size() <= kMostEntries) return joinedText(entries);
  std::string list;
  for (std::size_t i = 0; i < kMostEntries; ++i)
    list = withComma(list, entries[i]);
  return withComma(list, kDots);
}

}  // namespace publishing
