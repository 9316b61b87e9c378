// SPDX-License-Identifier: Apache-2.0
// Gives public PPDs covers and inserts, and looks at what became of them.
#pragma once

#include <filesystem>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "tests/corpus/Tally.h"

namespace publishing::corpus {

// What was found in the PPDs of one kind of printers.
struct KindTally {
  Count files = 0;
  Count enabled = 0;
  std::map<std::string, Count> refusals;  // by reason
  Count bytesBefore = 0;                  // of the enabled files
  Count bytesAfter = 0;
  Count pairs = 0;  // see ConstraintComparison
  Count forbidden = 0;
  Count queries = 0;
  Count queriesForbidden = 0;
};

struct EnabledTally {
  std::map<std::string, KindTally> kinds;  // by the kind's name
  std::vector<std::string> wrong;          // "path: what"
  Count checkedByCups = 0;                 // files whose verdict by cupstestppd was compared
  Count moreFailures = 0;                  // ... that fail in more points than before
};

// Enables the PPD and adds what it finds under this name: whether libcups opens the result, whether
// a cover from each tray and of each type is forbidden by exactly the choices that forbid the tray
// and the type themselves, and whether disabling gives the same bytes, with LF, CR LF and CR and
// after a default was changed. `cupstestppd`, when it is named, must come to the same verdict on
// both files.
void checkEnabledPPD(const std::filesystem::path& path, const std::string& name,
                     const std::string& cupstestppd, EnabledTally& tally);

// Markdown tables, then what was wrong.
void writeEnabledReport(std::ostream& out, const EnabledTally& tally);

}  // namespace publishing::corpus
