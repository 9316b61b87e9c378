// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "printing/JobTicket.h"

namespace publishing {

// What job options say of the order and the place of the pages on the sheets, which covers and
// inserts depend on. CUPS and its filters take each thing by several names, in any case.
struct JobLayout {
  std::optional<int> numberUp;  // as written, also when it is no layout that CUPS knows
  std::optional<bool> reverse;  // the last page comes out first
  std::optional<bool> booklet;
};

JobLayout layoutOf(const JobTicket::Options& options);

// Whether an option of that name says something of the output order.
bool isOutputOrder(const std::string& name);

}  // namespace publishing
