// SPDX-License-Identifier: Apache-2.0
// A corpus run as text: Markdown tables, and lists of what needs a look.
#pragma once

#include <map>
#include <ostream>
#include <string>

#include "tests/corpus/Tally.h"

namespace publishing::corpus {

// The tables of docs/corpus.md, a column for each package and one for all.
void writeReport(std::ostream& out, const std::map<std::string, Tally>& packages);

}  // namespace publishing::corpus
