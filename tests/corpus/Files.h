// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <vector>

namespace publishing::corpus {

// Every file below the folder, in an order that is the same everywhere. Throws std::runtime_error
// when there is none.
std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& folder);

}  // namespace publishing::corpus
