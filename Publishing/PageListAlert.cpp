// SPDX-License-Identifier: Apache-2.0
#include "Publishing/PageListAlert.h"

#include "Publishing/NSStringMyExtension.h"
#include "Publishing/global.h"
#include "Publishing/parseNum.h"

namespace publishing {

std::optional<PageListAlert> alertForPageText(const std::optional<std::string>& list) {
  if (list && checkFor(*list, kCheckEmpty)) return PageListAlert{kNumError, kEnterNum};
  const bool beginsWithDigit =
      list && !list->empty() && list->front() >= '0' && list->front() <= '9';
  if (!beginsWithDigit) return PageListAlert{kNumError, kEnterNum2};
  return std::nullopt;
}

PageListAlert alertForPageList(std::int32_t result, bool duplex, std::int64_t coverMode) {
  switch (result) {
    case kPageListMalformed:
      return {kNumError, kEnterNum};
    case kPageListOutOfBounds:
      return {kNumError, duplex && (coverMode & 3) == 3 ? kExceedDuplexBoundary : kExceedBoundary};
    case kPageListTooLong:
      return {kNumError, kExceedLimit};
    case kPageListEmptyRange:
      return {kNumError, kRangeErr};
    default:
      return {kUdfError, kUndefined};
  }
}

}  // namespace publishing
