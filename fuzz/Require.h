// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <iostream>
#include <string>

namespace publishing {

// Ends the fuzzer with the message when an invariant is broken: libFuzzer then keeps the input.
inline void require(bool holds, const std::string& otherwise) {
  if (holds) return;
  std::cerr << "broken: " << otherwise << '\n';
  std::abort();
}

}  // namespace publishing
