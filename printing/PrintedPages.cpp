// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintedPages.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <vector>

#include <strings.h>

namespace publishing {
namespace {

using Options = std::map<std::string, std::string>;

constexpr const char* kRanges = "page-ranges";
constexpr const char* kSet = "page-set";

const std::string* find(const Options& options, const char* name) {
  const auto found = std::find_if(options.begin(), options.end(), [name](const auto& option) {
    return strcasecmp(option.first.c_str(), name) == 0;
  });
  return found == options.end() ? nullptr : &found->second;
}

bool isAnyOf(const std::string& value, std::initializer_list<const char*> words) {
  return std::any_of(words.begin(), words.end(),
                     [&value](const char* word) { return strcasecmp(value.c_str(), word) == 0; });
}

struct Range {
  int first = 1;
  int last = std::numeric_limits<int>::max();
};

// The number that the whole text is, 1 or more; `otherwise` for no text.
std::optional<int> numberIn(std::string_view text, int otherwise) {
  if (text.empty()) return otherwise;
  int number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || number < 1) return std::nullopt;
  return number;
}

// "2", "2-5", "2-" or "-5".
std::optional<Range> rangeIn(std::string_view entry) {
  const Range all;
  const std::size_t dash = entry.find('-');
  const auto first = numberIn(entry.substr(0, dash), all.first);
  if (!first || entry.empty()) return std::nullopt;
  if (dash == std::string_view::npos) return Range{*first, *first};
  const auto last = numberIn(entry.substr(dash + 1), all.last);
  if (!last || *last < *first) return std::nullopt;
  return Range{*first, *last};
}

std::optional<std::vector<Range>> rangesIn(std::string_view list) {
  std::vector<Range> ranges;
  while (!list.empty()) {
    const std::string_view entry = list.substr(0, list.find(','));
    list.remove_prefix(std::min(entry.size() + 1, list.size()));
    const auto range = rangeIn(entry);
    if (!range) return std::nullopt;
    ranges.push_back(*range);
  }
  return ranges;
}

// How many sides the layout makes of the pages.
std::optional<int> sidesOf(int pages, const Options& options) {
  const std::string* booklet = find(options, "booklet");
  // A folded sheet takes four pages, two on a side.
  if (booklet != nullptr && !isAnyOf(*booklet, {"false", "no", "off"}))
    return (pages / 4 + (pages % 4 == 0 ? 0 : 1)) * 2;
  const std::string* layout = find(options, "number-up");
  if (layout == nullptr) return pages;
  const auto numberUp = numberIn(*layout, 1);
  if (!numberUp) return std::nullopt;
  return pages / *numberUp + (pages % *numberUp == 0 ? 0 : 1);
}

}  // namespace

std::optional<int> printedPages(int pages, const Options& options) {
  const auto sides = sidesOf(pages, options);
  if (!sides || !leavesOutPages(options)) return sides;
  std::vector<Range> ranges = {{}};
  if (const std::string* list = find(options, kRanges)) {
    const auto read = rangesIn(*list);
    if (!read) return std::nullopt;
    ranges = *read;
  }
  const std::string* set = find(options, kSet);
  const bool odd = set == nullptr || !isAnyOf(*set, {"even"});
  const bool even = set == nullptr || !isAnyOf(*set, {"odd"});
  int count = 0;
  for (int side = 1; side <= *sides; ++side) {
    const bool listed = std::any_of(ranges.begin(), ranges.end(), [side](const Range& range) {
      return range.first <= side && side <= range.last;
    });
    if (listed && (side % 2 == 1 ? odd : even)) ++count;
  }
  return count;
}

bool leavesOutPages(const Options& options) {
  const std::string* set = find(options, kSet);
  return find(options, kRanges) != nullptr || (set != nullptr && isAnyOf(*set, {"even", "odd"}));
}

}  // namespace publishing
