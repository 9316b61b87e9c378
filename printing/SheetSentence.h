// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "printing/JobSheets.h"

namespace publishing {

// What comes out of the printer, in the user's language: "Front and back cover on Leather, page 1
// outside; sheets of Thick before pages 5, 8 and 12–14. 19 sheets in all." Without the total while
// the number of pages is not known. What the job does not get is not in it, see warningsOf().
std::string sentenceOf(const JobSheets& job);

}  // namespace publishing
