// SPDX-License-Identifier: Apache-2.0
// Questions that the panel asks of strings.
#pragma once

#include <cstdint>
#include <string>

namespace publishing {

// The tests of checkFor, to be combined bit by bit.
inline constexpr int kCheckEmpty = 1;
inline constexpr int kCheckLongerThan8 = 2;
inline constexpr int kCheckNonDigits = 4;

// True when `text` (UTF-8; its length counts UTF-16 units) fails one of the tests that `mask`
// selects: it is empty (1), it is longer than 8 (2), it holds something else than the digits 0 to 9
// (4). Other bits of the mask are ignored.
bool checkFor(const std::string& text, int mask);

// The number that `text` begins with: leading blanks, an optional sign and decimal digits are read,
// the rest is ignored. 0 when there are no digits; saturates at the ends of the 32-bit range.
std::int32_t intValue(const std::string& text);

}  // namespace publishing
