// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/Tally.h"

#include <algorithm>

namespace publishing::corpus {

Tally& Tally::operator+=(const Tally& other) {
  files += other.files;
  largeFiles += other.largeFiles;
  largestFile = std::max(largestFile, other.largestFile);
  unopened.insert(unopened.end(), other.unopened.begin(), other.unopened.end());
  options += other.options;
  choices += other.choices;
  marks += other.marks;
  wrong.insert(wrong.end(), other.wrong.begin(), other.wrong.end());
  repeatedOptions += other.repeatedOptions;
  constraints += other.constraints;
  trayConstraints += other.trayConstraints;
  openTrayConstraints += other.openTrayConstraints;
  trayFiles += other.trayFiles;
  oneWayFiles += other.oneWayFiles;
  queries += other.queries;
  forbiddenByPanel += other.forbiddenByPanel;
  forbiddenByCups += other.forbiddenByCups;
  unequalAnswers += other.unequalAnswers;
  for (const auto& [difference, found] : other.differences) {
    Differences& sum = differences[difference];
    sum.choices += found.choices;
    sum.answers += found.answers;
    sum.files.insert(found.files.begin(), found.files.end());
  }
  return *this;
}

bool Tally::passed() const {
  return wrong.empty() && !differences.contains(Difference::Unexplained);
}

}  // namespace publishing::corpus
