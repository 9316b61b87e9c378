// SPDX-License-Identifier: Apache-2.0
#include "Publishing/PageListAlert.h"

#include <gtest/gtest.h>

#include "Publishing/global.h"
#include "Publishing/parseNum.h"

namespace publishing {
namespace {

TEST(PageListAlert, NamesEachFault) {
  struct Case {
    std::int32_t result;
    bool duplex;
    std::int64_t coverMode;
    const char* title;
    const char* message;
  };
  for (const auto& [result, duplex, coverMode, title, message] :
       {Case{kPageListMalformed, false, 0, kNumError, kEnterNum},
        Case{kPageListOutOfBounds, false, 0, kNumError, kExceedBoundary},
        Case{kPageListOutOfBounds, true, 1, kNumError, kExceedBoundary},
        Case{kPageListOutOfBounds, true, 2, kNumError, kExceedBoundary},
        Case{kPageListOutOfBounds, false, 3, kNumError, kExceedBoundary},
        Case{kPageListOutOfBounds, true, 3, kNumError, kExceedDuplexBoundary},
        Case{kPageListOutOfBounds, true, 15, kNumError, kExceedDuplexBoundary},
        Case{kPageListOutOfBounds, true, 16, kNumError, kExceedBoundary},
        Case{kPageListTooLong, true, 3, kNumError, kExceedLimit},
        Case{kPageListEmptyRange, true, 3, kNumError, kRangeErr}}) {
    const PageListAlert alert = alertForPageList(result, duplex, coverMode);
    EXPECT_STREQ(alert.title, title) << result;
    EXPECT_STREQ(alert.message, message) << result;
  }
}

TEST(PageListAlert, UnknownResultIsAnUndefinedError) {
  for (const std::int32_t result : {-5, 1, 99}) {
    const PageListAlert alert = alertForPageList(result, false, 0);
    EXPECT_STREQ(alert.title, "Undefined Page Insert Error");
    EXPECT_STREQ(alert.message, "Page insert caused undefined error.");
  }
}

}  // namespace
}  // namespace publishing
