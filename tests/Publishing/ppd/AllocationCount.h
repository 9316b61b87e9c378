// SPDX-License-Identifier: Apache-2.0
// What this program has taken from operator new, which counts it: to see whether a repeated call
// keeps some, and what a call costs without a clock.
#pragma once

#include <cstdint>

namespace publishing::test {

// Blocks taken so far, given back or not.
std::int64_t madeAllocations();

// Blocks that are alive, and their bytes with the allocator's rounding.
std::int64_t liveAllocations();
std::int64_t liveBytes();

}  // namespace publishing::test
