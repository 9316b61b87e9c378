// SPDX-License-Identifier: Apache-2.0
// Which of a PPD's marked choices exclude each other.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <cups/ppd.h>

#include "printing/ppd/PPDChoice.h"

namespace publishing {

// Marked choices that exclude each other; two of them, seldom more. The panel's media come first.
struct Conflict {
  std::vector<PPDChoice> choices;

  // For the user, naming all sides: "Cover Paper: Coated Paper. Conflicts with Paper Source: Tray 2
  // (CoverMediaType=Coated, InputSlot=Tray2)".
  [[nodiscard]] std::string text() const;
};

// The conflicts among the marked choices, by the rules of ppdConflicts: UIConstraints in either
// direction, NonUIConstraints and cupsUIConstraints; a constraint without a choice means every
// choice that switches something on. The PPD's marks stay as they are.
std::vector<Conflict> conflictsIn(ppd_file_t* ppd);

// By the keywords of the option's choices, marked or not: the marked choices of other options that
// each would exclude, were it marked. Choices that exclude none are left out.
std::map<std::string, std::vector<PPDChoice>> choicesExcludedBy(ppd_file_t* ppd,
                                                                const std::string& option);

}  // namespace publishing
