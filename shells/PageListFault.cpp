// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListFault.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "Publishing/PageListAlert.h"
#include "Publishing/PublishingSettings.h"
#include "Publishing/parseNum.h"
#include "base/Translation.h"

namespace publishing {
namespace {

constexpr std::int64_t kBothFrontSides = kFrontOutside | kFrontInside;
constexpr int kLowestPage = 2;
constexpr std::size_t kLongestEntry = 20;  // bytes that are shown of it

// Nothing for what is no page or range of pages, such as "5--7" and "-5"; "12-" is a range.
struct Entry {
  int first = 0;
  std::optional<std::string_view> lastDigits;  // of a range
  int last = 0;                                // 0 for no digits

  [[nodiscard]] bool isRange() const { return lastDigits.has_value(); }
};

bool isNumber(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Numbers beyond the highest page are as good as each other.
int valueOf(std::string_view digits) {
  int value = 0;
  for (const char digit : digits)
    value = std::min(value * 10 + (digit - '0'), kHighestPage + 1);
  return value;
}

std::optional<Entry> entryOf(std::string_view text) {
  const std::size_t dash = text.find('-');
  const std::string_view first = text.substr(0, dash);
  if (first.empty() || !isNumber(first)) return std::nullopt;
  Entry entry;
  entry.first = valueOf(first);
  if (dash == std::string_view::npos) return entry;
  entry.lastDigits = text.substr(dash + 1);
  if (!isNumber(*entry.lastDigits)) return std::nullopt;
  entry.last = valueOf(*entry.lastDigits);
  return entry;
}

std::string_view entryAt(std::string_view list, std::size_t first) {
  return list.substr(first, std::min(list.find(',', first), list.size()) - first);
}

std::int32_t resultOf(std::string_view list, const PageListRules& rules) {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  return ParsePageNumber(std::string(list), &pages, &count, rules.twoSided, rules.coverSides,
                         kHighestPage, kMostPages);
}

// Where the first entry begins that makes the list a faulty one: the panel goes from left to right
// and stops there.
std::size_t placeOfFault(std::string_view list, const PageListRules& rules) {
  std::vector<std::size_t> places;
  for (std::size_t first = 0; first < list.size(); first += entryAt(list, first).size() + 1)
    places.push_back(first);
  const auto isGoodUpTo = [&](std::size_t first) {
    return resultOf(list.substr(0, first + entryAt(list, first).size()), rules) == kPageListOK;
  };
  return *std::partition_point(places.begin(), places.end(), isGoodUpTo);
}

// How many pages of a good list count as single ones: those that it has not had before.
int singlePages(std::string_view list) {
  std::set<int> pages;
  int count = 0;
  for (std::size_t first = 0; first < list.size(); first += entryAt(list, first).size() + 1) {
    const auto entry = entryOf(entryAt(list, first));
    if (!entry || entryAt(list, first).empty()) continue;
    if (!entry->isRange() && pages.insert(entry->first).second) ++count;
    for (int page = entry->first; page <= entry->last; ++page)
      pages.insert(page);
  }
  return count;
}

// Says of one entry that the panel refuses what is wrong with it.
class Verdict {
 public:
  Verdict(std::string_view text, int singlesBefore, const PageListRules& rules)
      : text_(text), entry_(entryOf(text)), singlesBefore_(singlesBefore), rules_(rules) {}

  [[nodiscard]] std::string reason(std::int32_t result) const {
    if (!entry_) {
      return translated("“%s” is neither a page nor a range of pages such as 12-14.", shownEntry());
    }
    switch (result) {
      case kPageListOutOfBounds:
        return isTooLow() ? lowestText()
                          : translated("“%s”: page %d is the highest.", shownEntry(), kHighestPage);
      case kPageListTooLong:
        return entry_->isRange() ? tooLongText() : tooManyText();
      default:
        return lastPageText();
    }
  }

  [[nodiscard]] bool isBeginning(std::int32_t result) const {
    if (!entry_) return false;
    if (!entry_->isRange()) {
      return result == kPageListOutOfBounds && isTooLow() && singlesBefore_ < kMostPages;
    }
    if (result != kPageListEmptyRange) return false;
    for (int last = entry_->first + 1; last <= highestLast(); ++last)
      if (std::to_string(last).starts_with(*entry_->lastDigits)) return true;
    return false;
  }

 private:
  [[nodiscard]] std::string shownEntry() const {
    if (text_.size() <= kLongestEntry) return std::string(text_);
    return std::string(text_.substr(0, kLongestEntry)) + "…";
  }

  // One-sided jobs let ranges begin where single pages may not.
  [[nodiscard]] int lowestPage() const {
    return entry_->isRange() && !rules_.twoSided ? kLowestPage : rules_.lowestPage();
  }
  [[nodiscard]] bool isTooLow() const { return entry_->first < lowestPage(); }

  // Of the ranges that the panel would accept here.
  [[nodiscard]] int highestLast() const {
    return std::min(entry_->first + kMostPages - singlesBefore_ - 1, kHighestPage);
  }

  [[nodiscard]] std::string lowestText() const {
    if (lowestPage() == kLowestPage) {
      return translated("“%s”: page %d is the lowest.", shownEntry(), kLowestPage);
    }
    return translated("“%s”: page %d is the lowest, as both sides of the front cover are printed.",
                      shownEntry(), lowestPage());
  }

  [[nodiscard]] std::string tooManyText() const {
    return translated("“%s”: at most %d single pages. Ranges such as 12-14 do not count.",
                      shownEntry(), kMostPages);
  }

  [[nodiscard]] std::string tooLongText() const {
    if (entry_->last - entry_->first < kMostPages) {
      return translated("“%s”: too long after the single pages. Put it before them.", shownEntry());
    }
    if (singlesBefore_ > 0) {
      return translated("“%s”: at most %d pages in a range.", shownEntry(), kMostPages);
    }
    return translated("“%s”: at most %d pages in a range, here up to page %d.", shownEntry(),
                      kMostPages, highestLast());
  }

  // The last page is missing, or not higher than the first one.
  [[nodiscard]] std::string lastPageText() const {
    const int lowest = entry_->first + 1;
    if (highestLast() < lowest) {
      return translated("“%s”: no range fits after the single pages. Put it before them.",
                        shownEntry());
    }
    if (highestLast() == lowest) {
      return translated("“%s”: the range must end at page %d.", shownEntry(), lowest);
    }
    return translated("“%s”: the range must end at page %d to %d.", shownEntry(), lowest,
                      highestLast());
  }

  std::string_view text_;
  std::optional<Entry> entry_;
  int singlesBefore_;
  const PageListRules& rules_;
};

}  // namespace

int PageListRules::lowestPage() const {
  return (coverSides & kBothFrontSides) == kBothFrontSides ? kLowestPage + 1 : kLowestPage;
}

std::optional<PageListFault> faultInPages(const std::string& list, const PageListRules& rules) {
  if (list.empty()) return PageListFault{0, 0, "", true};
  if (list.front() == ',') {
    return PageListFault{0, 1, translated("The list must begin with a page."), false};
  }
  // A list that begins with something else than a page is not even parsed by the panel.
  const bool isParsed = !alertForPageText(list);
  if (isParsed && resultOf(list, rules) == kPageListOK) return std::nullopt;
  const std::size_t first = isParsed ? placeOfFault(list, rules) : 0;
  const std::string_view before = std::string_view(list).substr(0, first);
  const std::string_view entry = entryAt(list, first);
  const std::int32_t result =
      resultOf(std::string_view(list).substr(0, first + entry.size()), rules);
  const Verdict verdict(entry, singlePages(before), rules);
  return PageListFault{first, entry.size(), verdict.reason(result), verdict.isBeginning(result)};
}

}  // namespace publishing
