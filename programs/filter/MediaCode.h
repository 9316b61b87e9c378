// SPDX-License-Identifier: Apache-2.0
// The PostScript by which a printer changes paper between sheets.
#pragma once

#include "printing/ppd/FilterPPD.h"
#include "programs/filter/SheetCode.h"

namespace publishing {

// The code for the media of that order, on the printer of that PPD with the job's choices marked.
//
// What belongs to the document is left alone: its coordinates, lines and colour. What belongs to
// the body's medium comes back as it was after the setup, whatever the code of the choices does:
// many PPDs have none for their defaults.
SheetCode sheetCode(const SheetOrder& order, const FilterPPD& ppd);

// The text between parentheses, as PostScript reads it.
std::string postScriptString(const std::string& text);

}  // namespace publishing
