// SPDX-License-Identifier: Apache-2.0
// Whether a PPD forbids for covers and inserts what it forbids for trays and paper types.
#pragma once

#include <string>
#include <vector>

#include "tests/corpus/Tally.h"

namespace publishing::corpus {

struct ConstraintComparison {
  // A tray or paper type, as cover or as insert, with a choice of another option: constraints
  // between two options, as libcups has read them, say of each whether it is forbidden.
  Count pairs = 0;
  Count forbidden = 0;
  // The same media with choices of all other options at once, asked from libcups, with constraints
  // between any number of options.
  Count queries = 0;
  Count queriesForbidden = 0;
  // Choices of covers and inserts for which the two PPDs differ.
  std::vector<std::string> different;
};

// libcups is asked in two states of the marks, or, thoroughly, in as many as it takes to mark each
// choice of each option. The name is the seed of what is marked.
ConstraintComparison compareCoverConstraints(const std::string& before, const std::string& after,
                                             const std::string& name, bool thorough);

}  // namespace publishing::corpus
