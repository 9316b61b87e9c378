// SPDX-License-Identifier: Apache-2.0
// PPDs of any size for benchmarks, always the same for the same size.
#pragma once

#include <cstddef>
#include <string>

namespace publishing::bench {

// A PPD file of at least `size` bytes in the proportions of the largest public PPDs: for each 100
// KB some 15 options, 150 choices with 150 bytes of PostScript code each, and 1200 constraints,
// each listed from both sides, every tenth of them on the twelve trays.
std::string generatedPPD(std::size_t size);

// A PPD with that many constraints, at most 10^6, each of one of 1000 trays against one of the ten
// choices of 100 options.
std::string ppdWithConstraints(int constraints);

}  // namespace publishing::bench
