// SPDX-License-Identifier: Apache-2.0
// Covers and inserts for any PPD: the options that the panel asks for, and the way of the job
// through the filter that makes them. Everything works on the bytes of the PPD. Lines are added,
// and the driver's own filter lines become comments; so the way back restores every byte, whatever
// happened to other lines meanwhile.
#pragma once

#include <string>
#include <string_view>

#include "printing/covers/PrinterKind.h"

namespace publishing {

// What is in the PPD and what its printer can do.
struct CoversState {
  bool enabled = false;    // our lines are there
  std::string bypass;      // a filter line beside ours that jobs can take; empty when there is none
  PrinterVerdict verdict;  // on the PPD without our lines
};

// Throws PrintError (Trouble) when only a part of our lines is left.
CoversState coversStateOf(std::string_view ppd);

// The PPD with our lines. One that has them already keeps them, unless jobs can go around the
// filter: then they are made anew. Throws PrintError: Refused with the reason when the printer
// cannot have covers and inserts; else as coversStateOf.
std::string withCovers(const std::string& ppd);

// The PPD as it was before withCovers(), with all changes that were made to other lines since.
// Throws as coversStateOf does.
std::string withoutCovers(const std::string& ppd);

}  // namespace publishing
