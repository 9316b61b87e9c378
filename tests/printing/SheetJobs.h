// SPDX-License-Identifier: Apache-2.0
// Jobs on the sample printer, and what is to come out.
#pragma once

#include <optional>

#include "printing/JobSheets.h"
#include "tests/printing/Samples.h"
#include "tests/sheets/SheetText.h"

namespace publishing {

// The sheets of a job with these options for the sample printer.
inline JobSheets sheetsOf(const Options& options, std::optional<int> pages) {
  PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
  ppd.mark(options);
  return sheetsOf(options, &ppd, pages);
}

}  // namespace publishing
