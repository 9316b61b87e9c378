// SPDX-License-Identifier: Apache-2.0
// Sheets in a line of text, and job options to make them from.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "sheets/SheetPlan.h"

namespace publishing {

using Options = std::map<std::string, std::string>;

// "C1|- B2|3": C cover, I insert, B body; front|back, "-" for a blank side; no back on the sheets
// of a one-sided job.
std::string written(const Sheet& sheet);
std::string written(const std::vector<Sheet>& sheets);

// The same of all copies, in the order in which they are printed.
std::string printed(const SheetPlan& plan);

// Sides as they are answered: "C1 - B2".
std::string written(const std::vector<SheetSide>& sides);

inline const Options kTwoSided = {{"sides", "two-sided-long-edge"}};
inline const Options kOneSided = {{"sides", "one-sided"}};

// Panel keys. `column`: 1 front cover, 2 front and back cover.
Options covers(const std::string& column, const std::string& value);
Options inserts(const std::string& value, const std::string& pages);

// Both; an option of the second wins.
Options operator+(Options options, const Options& more);

// The order of these options on a printer whose PPD adds nothing.
SheetOrder orderOf(const Options& options);

}  // namespace publishing
