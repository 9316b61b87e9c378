// SPDX-License-Identifier: Apache-2.0
// Pictures of sheets as text, to be compared.
#pragma once

#include <string>

#include "sheets/SheetPicture.h"

namespace publishing {

// The items in a line. A sheet: "C1|-", as of a plan. A stack with its number of sheets: "B2-9 x4",
// with "..." for a number that is not known; "I12-14|- x3" when only one side is printed. Left out:
// "... x20".
std::string itemsIn(const SheetPicture& picture);

// Everything, a line for each item and for each shape.
std::string dumpOf(const SheetPicture& picture);

}  // namespace publishing
