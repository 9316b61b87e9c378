// SPDX-License-Identifier: Apache-2.0
#include "printing/PageListText.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(PageListText, JoinsAsASentenceDoes) {
  EXPECT_EQ(joinedText({}), "");
  EXPECT_EQ(joinedText({"a"}), "a");
  EXPECT_EQ(joinedText({"a", "b"}), "a and b");
  EXPECT_EQ(joinedText({"a", "b", "c", "d"}), "a, b, c and d");
}

TEST(PageListText, MakesRangesOfThreeAndMore) {
  EXPECT_EQ(pageListText({5}), "5");
  EXPECT_EQ(pageListText({5, 8, 12, 13, 14}), "5, 8 and 12\u201314");
  EXPECT_EQ(pageListText({1, 2}), "1 and 2");
  EXPECT_EQ(pageListText({1, 2, 3, 5, 6, 7}), "1\u20133 and 5\u20137");
}

TEST(PageListText, LeavesTheEndOfALongListOut) {
  std::vector<int> pages;
  for (int page = 1; page <= 2000; page += 2)
    pages.push_back(page);
  const std::string text = pageListText(pages);
  EXPECT_TRUE(text.starts_with("1, 3, 5, 7, ")) << text;
  EXPECT_TRUE(text.ends_with(", 37, 39, \u2026")) << text;
}

}  // namespace
}  // namespace publishing
