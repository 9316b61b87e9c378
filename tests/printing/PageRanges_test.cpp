// SPDX-License-Identifier: Apache-2.0
#include "printing/PageRanges.h"

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Publishing/parseNum.h"

namespace publishing {
namespace {

// A job's two-sided mode and the value of its cover sides, which the parser asks for.
struct Mode {
  bool twoSided;
  std::int64_t coverValue;
};

// The pages of a list that the panel accepts; nothing for another list.
std::optional<std::vector<std::int32_t>> accepted(const std::string& list, const Mode& mode) {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  if (ParsePageNumber(list, &pages, &count, mode.twoSided, mode.coverValue, kHighestPage,
                      kMostPages) != kPageListOK) {
    return std::nullopt;
  }
  return pages;
}

// As the panel stores it.
std::string stored(const std::vector<std::int32_t>& pages) {
  std::string list;
  for (const std::int32_t page : pages)
    list += std::to_string(page) + ",";
  return list;
}

TEST(PageRanges, RunsBecomeRangesOfUpToTenPagesAndLonePagesComeLast) {
  const std::pair<const char*, const char*> rows[] = {
      {"3,5,9,", "3,5,9"},
      {"5,6,7,8,9,10,11,12,13,14,20,21,22,23,24,25,26,27,28,29,", "5-14,20-29"},
      {"2,5,6,", "5-6,2"},
      {"2-12", "2-10,11-12"},  // eleven pages: none is left over
      {"2-13", "2-11,12-13"},
      {"2-22", "2-11,12-20,21-22"},  // twenty-one: ten, nine, two
      {"501-511", "501-509,510-511"},
      {"14,5-8,2,6,511", "5-8,2,14,511"},
      {"5-14,20-29", "5-14,20-29"},
      {"", ""},
  };
  for (const auto& [list, ranges] : rows)
    EXPECT_EQ(asRanges(list), ranges) << list;
}

TEST(PageRanges, WhatIsNoPageListStaysAsItIs) {
  for (const char* text : {"-", "5--7", "9-5", "1", "1-3", "512", "5 8", "abc"})
    EXPECT_EQ(asRanges(text), text);
}

// Any list that the panel accepted once, it accepts again as it is remembered, for the same pages.
TEST(PageRanges, EveryAcceptedListStaysAccepted) {
  std::mt19937 random(20260523);
  const auto below = [&random](std::uint32_t bound) {
    return static_cast<std::int32_t>(random() % bound);
  };
  int lists = 0;
  for (int round = 0; round < 30000; ++round) {
    std::string list;
    const std::int32_t span = round % 3 == 0 ? 511 : 60;  // close together they join to long runs
    for (int item = below(14); item >= 0; --item) {
      const std::int32_t start = 2 + below(static_cast<std::uint32_t>(span - 2));
      list += std::to_string(start);
      if (below(2) == 0) list += "-" + std::to_string(start + 1 + below(9));
      list += ",";
    }
    for (const Mode& mode : {Mode{false, 0}, Mode{false, 3}, Mode{true, 1}, Mode{true, 3}}) {
      const auto pages = accepted(list, mode);
      if (!pages) continue;
      ++lists;
      ASSERT_EQ(accepted(asRanges(stored(*pages)), mode), pages) << list;
      ASSERT_EQ(accepted(asRanges(list), mode), pages) << list;
    }
  }
  EXPECT_GT(lists, 20000);
}

// The longest that there can be: every page from 2 on.
TEST(PageRanges, ListOfAllPagesStaysAccepted) {
  std::string list;
  for (int start = 2; start <= 511; start += 10)
    list += std::to_string(start) + "-" + std::to_string(start + 9) + ",";
  list.pop_back();
  list = list.substr(0, list.rfind(',')) + ",502-511";
  const auto pages = accepted(list, {false, 0});
  ASSERT_TRUE(pages);
  EXPECT_EQ(accepted(asRanges(stored(*pages)), {false, 0}), pages);
}

}  // namespace
}  // namespace publishing
