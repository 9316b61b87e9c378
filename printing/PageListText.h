// SPDX-License-Identifier: Apache-2.0
// Lists as a sentence in the user's language has them.
#pragma once

#include <string>
#include <vector>

namespace publishing {

// "a", "a and b", "a, b and c".
std::string joinedText(const std::vector<std::string>& parts);

// Page numbers in ascending order: "5, 8 and 12–14". Three and more that follow each other are a
// range; of a very long list the beginning, then "…".
std::string pageListText(const std::vector<int>& pages);

}  // namespace publishing
