// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListWriting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(PageListWriting, LeavesPageListsAlone) {
  for (const char* list : {"", "5", "5,8,12-14", ",,--", "5,", "-"})
    EXPECT_EQ(writtenAsPageList(list), list);
}

TEST(PageListWriting, TakesWhatOtherProgramsWrite) {
  const struct {
    const char* text;
    const char* list;
  } kTexts[] = {
      {"5, 8, 12", "5,8,12"},
      {"5 8  12", "5,8,12"},
      {" 5 ,8 , 12 ", "5,8,12,"},
      {"5\t8\n12\r\n", "5,8,12"},
      {"\n", ""},
      {"5 ", "5,"},  // the user will type on
      {"12 - 14", "12-14"},
      {"12–14", "12-14"},
      {"12—14", "12-14"},
      {"12 − 14", "12-14"},
      {"12‑14", "12-14"},
      {"5;8", "5,8"},
      {"５，８、１２－１４", "5,8,12-14"},
      {"１２～１４", "12-14"},
      {"٥،٨", "5,8"},
      {"5\u00a08", "5,8"},
      {"5\u200b8", "5,8"},
      {"\u200e5,8", "5,8"},
  };
  for (const auto& [text, list] : kTexts)
    EXPECT_EQ(writtenAsPageList(text), list) << text;
}

TEST(PageListWriting, LeavesWhatStandsForNothing) {
  EXPECT_EQ(writtenAsPageList("pages 3 to 5"), "pages,3,to,5");
  EXPECT_EQ(writtenAsPageList("½"), "½");
  EXPECT_EQ(writtenAsPageList("5 \xff"), "5 \xff");
  EXPECT_EQ(writtenAsPageList(std::string("5\0 8", 4)), std::string("5\0 8", 4));
}

TEST(PageListWriting, RefusesWhatCannotBeWrittenAndSaysWhat) {
  std::vector<std::string> refused;
  const PageListWriting writing([&](const std::string& what) { refused.push_back(what); });
  std::string shown = "before";
  for (const char* text : {"5x", "5-8x9", "3 pages", "5½", "5 \xff", "é"}) {
    EXPECT_FALSE(writing.isPartialStringValid(text, shown)) << text;
    EXPECT_EQ(shown, "before");
  }
  EXPECT_THAT(refused, testing::ElementsAre("x", "x", "pages", "½", " \xff", "é"));
  EXPECT_TRUE(writing.isPartialStringValid("5 – 8", shown));
  EXPECT_EQ(shown, "5-8");
  EXPECT_EQ(refused.size(), 6U);
}

TEST(PageListWriting, RefusesInSilenceWhenNobodyListens) {
  PageListWriting writing([](const std::string&) { FAIL(); });
  writing.fallSilent();
  std::string shown;
  EXPECT_FALSE(writing.isPartialStringValid("x", shown));
}

}  // namespace
}  // namespace publishing
