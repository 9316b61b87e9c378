// SPDX-License-Identifier: Apache-2.0
// The PostScript that makes sheets: what the printer is told between the pages.
#pragma once

#include <map>
#include <string>

namespace publishing {

// Complete lines, or empty.
struct SheetCode {
  // At the end of the document's setup.
  std::string setup;
  // Before the front of a sheet on another medium than the sheet before; by the medium's name in
  // the plan, empty for the medium of the body.
  std::map<std::string, std::string> media;
  // Where a set begins that is printed several times.
  std::string newSet;
};

// A line in the header of what was written here. It says that covers and inserts are in it.
inline constexpr const char* kSheetsMark = "%PublishingSheets: 1";

}  // namespace publishing
