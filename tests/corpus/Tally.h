// SPDX-License-Identifier: Apache-2.0
// Counts of a corpus run.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/corpus/Difference.h"

namespace publishing::corpus {

using Count = std::uint64_t;

inline constexpr Count kLargeFile = 100'000;  // bytes

struct Differences {
  Count choices = 0;  // marked choices that only one of the two sees in the way
  Count answers = 0;  // queries that this changes from allowed to forbidden or back
  std::set<std::string> files;
};

// What was found in the PPDs of one package, or of all.
struct Tally {
  Count files = 0;
  Count largeFiles = 0;               // of more than 100 000 bytes
  Count largestFile = 0;              // in bytes
  std::vector<std::string> unopened;  // "path: reason"

  Count options = 0;
  Count choices = 0;
  Count marks = 0;                 // options asked for their mark, in each state of the marks
  std::vector<std::string> wrong;  // catalogue or mark unlike libcups's: "path: what"
  Count repeatedOptions = 0;  // options whose keyword another group has too: one of them is kept

  Count constraints = 0;
  Count trayConstraints = 0;
  Count openTrayConstraints = 0;  // ... without a choice on one side
  Count trayFiles = 0;            // files with a tray constraint
  Count oneWayFiles = 0;          // ... one of which at least stands in one direction only

  Count queries = 0;
  Count forbiddenByPanel = 0;
  Count forbiddenByCups = 0;
  Count unequalAnswers = 0;
  std::map<Difference, Differences> differences;

  Tally& operator+=(const Tally& other);

  // Whether the catalogue, the marks and every answer are as libcups's or differ for a known
  // reason.
  [[nodiscard]] bool passed() const;
};

}  // namespace publishing::corpus
