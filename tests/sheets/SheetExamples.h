// SPDX-License-Identifier: Apache-2.0
// Jobs and their sheets.
#pragma once

#include <ostream>
#include <vector>

#include "tests/sheets/SheetText.h"

namespace publishing {

struct SheetExample {
  const char* name;
  int pages;
  Options options;
  const char* sheets;  // as printed() writes them
};

void PrintTo(const SheetExample& example, std::ostream* out);

// The table of docs/sheets.md.
const std::vector<SheetExample>& sheetExamples();

}  // namespace publishing
