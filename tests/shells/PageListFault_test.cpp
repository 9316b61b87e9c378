// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListFault.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using testing::HasSubstr;

constexpr std::int64_t kBothFrontSides = 3;

TEST(PageListFault, IsNotInListsThatThePanelAccepts) {
  for (const char* list : {"2", "5,8,12-14", "5,", "5,,8", "14-20,2-3", "511", "5-14,20-29"})
    EXPECT_FALSE(faultInPages(list, false, 0)) << list;
  EXPECT_FALSE(faultInPages("3", true, kBothFrontSides));
}

TEST(PageListFault, NamesTheEntryAndWhy) {
  const struct {
    const char* list;
    const char* entry;
    const char* reason;
  } kFaults[] = {
      {"5,1,8", "1", "“1” is not between page 2 and page 511"},
      {"5,600", "600", "not between page 2 and page 511"},
      {"5,8-512", "8-512", "not between"},
      {"5,12-10,8", "12-10", "does not lead from a lower page to a higher one"},
      {"7-7", "7-7", "does not lead"},
      {"5,8--9", "8--9", "neither a page nor a range"},
      {"5,-9", "-9", "neither a page nor a range"},
      {"5,9-", "9-", "neither a page nor a range"},
      {"-", "-", "neither a page nor a range"},
      {"-5,8", "-5", "neither a page nor a range"},
      {",5", ",", "must begin with a page"},
      {"2,3,4,5,6,7,8,9,10,11,12,13", "12", "“12” is too much"},
      {"5,20-30", "20-30", "“20-30” is too much"},
  };
  for (const auto& [list, entry, reason] : kFaults) {
    const auto fault = faultInPages(list, false, 0);
    ASSERT_TRUE(fault) << list;
    EXPECT_EQ(std::string(list).substr(fault->first, fault->length), entry) << list;
    EXPECT_THAT(fault->reason, HasSubstr(reason)) << list;
  }
}

TEST(PageListFault, OfAnEmptyListHasNoReason) {
  const auto fault = faultInPages("", false, 0);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->length, 0U);
  EXPECT_EQ(fault->reason, "");
}

TEST(PageListFault, KnowsThatPrintedFrontCoversTakeTwoPages) {
  const auto fault = faultInPages("2,5", true, kBothFrontSides);
  ASSERT_TRUE(fault);
  EXPECT_THAT(fault->reason, HasSubstr("between page 3 and page 511"));
}

}  // namespace
}  // namespace publishing
