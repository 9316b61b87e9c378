// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelSummary.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(PanelSummary, NamesTheCoversThenTheInserts) {
  PublishingSettings state;
  EXPECT_EQ(summaryOf(state, ", "), "Cover Mode: Off, Page Insert: Off");
  state.pageinsertEnableState = 1;
  EXPECT_EQ(summaryOf(state, ", "), "Cover Mode: Off, Page Insert: On");
  state.covermodeEnableState = 1;
  EXPECT_EQ(summaryOf(state, " · "), "Cover Mode: On · Page Insert: On");
}

}  // namespace
}  // namespace publishing
