// SPDX-License-Identifier: Apache-2.0
#include "tests/support/HeadlessPrintSettings.h"

namespace publishing {

std::optional<std::string> HeadlessPrintSettings::getValue(const std::string& key) const {
  const auto found = values_.find(key);
  return found != values_.end() ? std::optional(found->second) : std::nullopt;
}

void HeadlessPrintSettings::setValue(const std::string& key,
                                     const std::optional<std::string>& value) {
  if (value) {
    values_[key] = *value;
  } else {
    values_.erase(key);
  }
}

}  // namespace publishing
