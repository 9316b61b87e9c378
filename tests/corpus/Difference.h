// SPDX-License-Identifier: Apache-2.0
// Why the panel and libcups can give different answers about a tray.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/corpus/TrayOracle.h"

namespace publishing::corpus {

enum class Difference {
  Off,  // a constraint without a choice: the panel lets "None" and "False" off, libcups "Off" too
  PageSize,  // libcups compares with the selected size, the panel with the option's own mark
  Custom,    // libcups reads "*CustomX True" as the choice Custom of option X, the panel to the
             // letter
  Spelling,  // a name is written in another case than the option's or choice's own
  OwnTray,   // a constraint between two trays: libcups compares both with the tray asked about
  Unexplained,
};

inline constexpr std::array kDifferences{Difference::Off,     Difference::PageSize,
                                         Difference::Custom,  Difference::Spelling,
                                         Difference::OwnTray, Difference::Unexplained};

// A few words for reports.
const char* nameOf(Difference difference);

// One query in one state of the marks.
struct TrayQuery {
  const std::vector<TrayConstraint>& constraints;
  std::string tray;
  std::string pageSize;  // the size selected, by whichever option; empty for none
};

// Why only the panel sees the tray forbidden by this marked choice.
Difference whyOnlyPanelForbids(const TrayQuery& query, const Side& marked);

// Why only libcups sees the tray forbidden by this choice; `marked` is what that option has marked,
// empty for nothing.
Difference whyOnlyCupsForbids(const TrayQuery& query, const Side& reported,
                              const std::string& marked);

}  // namespace publishing::corpus
