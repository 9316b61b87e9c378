// SPDX-License-Identifier: Apache-2.0
// The filter as a whole: from the document that the print server hands over to what the printer
// gets.
#pragma once

#include "programs/filter/FilterJob.h"

namespace publishing {

// Writes to standard output, and messages in the form of CUPS to standard error. Throws
// FilterFailure, std::system_error, JobCancelled and std::runtime_error; then what was written is
// not complete.
void runFilter(const FilterJob& job);

}  // namespace publishing
