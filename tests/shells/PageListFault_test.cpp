// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListFault.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using testing::HasSubstr;

constexpr PageListRules kPlain;
constexpr PageListRules kBothFrontSides = {.twoSided = true, .coverSides = 3};

TEST(PageListFault, IsNotInListsThatThePanelAccepts) {
  for (const char* list : {"2", "5,8,12-14", "5,", "5,,8", "14-20,2-3", "511", "5-14,20-29"})
    EXPECT_FALSE(faultInPages(list, kPlain)) << list;
  EXPECT_FALSE(faultInPages("3", kBothFrontSides));
}

TEST(PageListFault, NamesTheEntryAndWhy) {
  const struct {
    const char* list;
    const char* entry;
    const char* reason;
  } kFaults[] = {
      {"5,1,8", "1", "“1”: page 2 is the lowest."},
      {"5,1-3,8", "1-3", "“1-3”: page 2 is the lowest."},
      {"5,600", "600", "“600”: page 511 is the highest."},
      {"5,8-512", "8-512", "“8-512”: page 511 is the highest."},
      {"5,99999999999999999999999", "99999999999999999999999", "“99999999999999999999…”: page 511"},
      {"5,12-10,8", "12-10", "“12-10”: the range must end at page 13 to 20."},
      {"7-7", "7-7", "“7-7”: the range must end at page 8 to 16."},
      {"509-3", "509-3", "“509-3”: the range must end at page 510 to 511."},
      {"510-", "510-", "“510-”: the range must end at page 511."},
      {"5,9-", "9-", "“9-”: the range must end at page 10 to 17."},
      {"5,8--9", "8--9", "neither a page nor a range"},
      {"5,-9", "-9", "neither a page nor a range"},
      {"-", "-", "neither a page nor a range"},
      {"-5,8", "-5", "neither a page nor a range"},
      {",5", ",", "must begin with a page"},
      {"2,3,4,5,6,7,8,9,10,11,12,13", "12", "“12”: at most 10 single pages. Ranges such as"},
      {"12-30", "12-30", "“12-30”: at most 10 pages in a range, here up to page 21."},
      {"505-600,4", "505-600", "page 511 is the highest"},
      {"5,20-30", "20-30", "“20-30”: at most 10 pages in a range."},
      {"5,20-29", "20-29", "“20-29”: too long after the single pages. Put it before them."},
      // Pages that came before do not count as single ones.
      {"4-6,5,5,6,20-30", "20-30", "here up to page 29"},
      {"2,3,4,5,6,7,8,9,10,20-", "20-", "no range fits after the single pages"},
  };
  for (const auto& [list, entry, reason] : kFaults) {
    const auto fault = faultInPages(list, kPlain);
    ASSERT_TRUE(fault) << list;
    EXPECT_EQ(std::string(list).substr(fault->first, fault->length), entry) << list;
    EXPECT_THAT(fault->reason, HasSubstr(reason)) << list;
  }
}

TEST(PageListFault, OfAnEmptyListHasNoReason) {
  const auto fault = faultInPages("", kPlain);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->length, 0U);
  EXPECT_EQ(fault->reason, "");
}

TEST(PageListFault, KnowsThatPrintedFrontCoversTakeTwoPages) {
  const auto fault = faultInPages("2,5", kBothFrontSides);
  ASSERT_TRUE(fault);
  EXPECT_THAT(fault->reason, HasSubstr("“2”: page 3 is the lowest, as both sides of the front"));
}

TEST(PageListFault, OfOneSidedJobsLetsRangesBeginOnPageTwo) {
  constexpr PageListRules kOneSided = {.twoSided = false, .coverSides = 3};
  EXPECT_FALSE(faultInPages("2-4", kOneSided));
  EXPECT_THAT(faultInPages("2,5", kOneSided)->reason, HasSubstr("page 3 is the lowest"));
  EXPECT_THAT(faultInPages("1-4", kOneSided)->reason, HasSubstr("“1-4”: page 2 is the lowest."));
}

TEST(PageListFault, KnowsWhatCanBecomeAGoodEntry) {
  for (const char* list : {"", "1", "0", "12-", "12-1", "12-2", "5,12-1", "98-", "98-1", "505-5"})
    EXPECT_TRUE(faultInPages(list, kPlain)->isBeginning) << list;
  EXPECT_TRUE(faultInPages("2", kBothFrontSides)->isBeginning);
  for (const char* list : {"1-", "12-3", "12-12", "300-2", "511-", "512", "12--", "-", "5,-", ",",
                           "12-30", "2,3,4,5,6,7,8,9,10,11,1", "2,3,4,5,6,7,8,9,10,20-"})
    EXPECT_FALSE(faultInPages(list, kPlain)->isBeginning) << list;
}

TEST(PageListFault, IsFoundInLongListsToo) {
  std::string list = "7";
  for (int entry = 0; entry < 20'000; ++entry)
    list += ",7";
  EXPECT_FALSE(faultInPages(list, kPlain));
  const auto fault = faultInPages(list + ",1", kPlain);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->first, list.size() + 1);
}

}  // namespace
}  // namespace publishing
