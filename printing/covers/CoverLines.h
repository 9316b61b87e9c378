// SPDX-License-Identifier: Apache-2.0
// The lines that give a PPD the options CoverMediaType and PageMediaType and lead its jobs through
// the filter that makes covers and inserts.
#pragma once

#include <string>
#include <vector>

#include "printing/covers/PrinterKind.h"

namespace publishing {

// Options that the PPD has already are left alone. `lineEnd` ends each line. Throws PrintError
// (Refused) when a choice cannot be repeated under a keyword of its own.
std::string coverLines(const std::vector<PPDStatement>& statements, const PPDMedia& media,
                       const PrinterVerdict& verdict, std::string_view lineEnd);

// Whether the driver's line is left as it is beside ours; all others are set aside.
bool staysInForce(const FilterLine& line);

}  // namespace publishing
