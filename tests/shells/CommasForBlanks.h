// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <string>

#include "Publishing/platform/Formatter.h"

namespace publishing {

// A formatter that writes every blank as a comma.
class CommasForBlanks final : public Formatter {
 public:
  bool isPartialStringValid(const std::string& partial, std::string& shown) const override {
    shown = partial;
    std::replace(shown.begin(), shown.end(), ' ', ',');
    return true;
  }
};

}  // namespace publishing
