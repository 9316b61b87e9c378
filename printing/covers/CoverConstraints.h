// SPDX-License-Identifier: Apache-2.0
// What a PPD forbids for its trays and paper types, said again for covers and inserts.
#pragma once

#include <string>
#include <vector>

#include "printing/covers/MediaOptions.h"

namespace publishing {

// Lines without line end: each UIConstraints, NonUIConstraints and cupsUIConstraints statement that
// has InputSlot or MediaType on one of its sides, for each of the options. A side without a choice
// means every choice but None, Off and False, and is written out.
std::vector<std::string> repeatedConstraints(const std::vector<PPDStatement>& statements,
                                             const std::vector<CoverChoice>& choices,
                                             const std::vector<std::string>& options);

}  // namespace publishing
