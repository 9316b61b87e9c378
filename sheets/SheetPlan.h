// SPDX-License-Identifier: Apache-2.0
// The sheets of a job whose number of pages is known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sheets/Sheet.h"
#include "sheets/SheetOrder.h"
#include "sheets/SheetPlanner.h"

namespace publishing {

struct SheetPlan {
  // One set, in the order in which the sheets are printed.
  std::vector<Sheet> sheets;
  int copies = 1;
  bool collated = false;
  // Those of the order, then the listed pages that got no insert.
  std::vector<SheetWarning> warnings;

  // Sheets of all copies.
  [[nodiscard]] std::int64_t sheetCount() const;

  // The sheet that is printed after `index` others, copies counted: 0 to sheetCount() - 1.
  [[nodiscard]] const Sheet& sheetAt(std::int64_t index) const;
};

// The plan of that many pages, 0 or more: what SheetPlanner answers, side by side. Needs memory
// for every sheet of a set.
SheetPlan planSheets(const SheetOrder& order, int pages);

struct MediumTotal {
  std::string medium;  // as in Sheet
  std::int64_t sheets = 0;

  bool operator==(const MediumTotal&) const = default;
};

// How many sheets of each medium all copies need, in the order in which the media first appear.
std::vector<MediumTotal> mediumTotals(const SheetPlan& plan);

// Sheets that follow each other on the same medium, for printers that must be started anew for
// each medium.
struct MediumRun {
  std::string medium;     // as in Sheet
  std::size_t first = 0;  // index into the plan's sheets
  std::size_t count = 0;

  bool operator==(const MediumRun&) const = default;
};

// The runs of one set.
std::vector<MediumRun> mediumRuns(const SheetPlan& plan);

}  // namespace publishing
