// SPDX-License-Identifier: Apache-2.0
#include "Publishing/global.h"

#include <gtest/gtest.h>

#include "Publishing/Utilities.h"

namespace publishing {
namespace {

// Translations are looked up by these very texts.
TEST(Texts, AreTheKeysOfTheTranslations) {
  EXPECT_STREQ(kOK, "OK");
  EXPECT_STREQ(kOn, "On");
  EXPECT_STREQ(kOff, "Off");
  EXPECT_STREQ(kPublishingPanelNameKey, "Publishing");
  EXPECT_STREQ(kCovermodeStatus, "Cover Mode");
  EXPECT_STREQ(kTransparencyinterleavingStatus, "Transparency Interleaving");
  EXPECT_STREQ(kPageinsertStatus, "Page Insert");
  EXPECT_STREQ(kNumError, "Page Number Error");
  EXPECT_STREQ(kEnterNum, "Please type a page range.");
  EXPECT_STREQ(kEnterNum2, "Please enter your specified pages.");
  EXPECT_STREQ(kExceedLimit, "You can only insert up to 10 pages.");
  EXPECT_STREQ(kExceedBoundary, "You can only enter page numbers between 2 and 511.");
  EXPECT_STREQ(kExceedDuplexBoundary, "You can only enter page numbers between 3 and 511.");
  EXPECT_STREQ(kRangeErr,
               "The ending page number of range should be bigger than the beginning page number.");
  EXPECT_STREQ(kUdfError, "Undefined Page Insert Error");
  EXPECT_STREQ(kUndefined, "Page insert caused undefined error.");
}

TEST(System, HandsOutThePPDThroughTheHost) {
  EXPECT_TRUE(RunningOn105OrLater());
}

}  // namespace
}  // namespace publishing
