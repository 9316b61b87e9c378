// SPDX-License-Identifier: Apache-2.0
// Runs the filter as a print server does, and looks at what comes out.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {

struct FilterRun {
  // The document's file; its contents come through a pipe when `throughPipe`.
  std::string document;
  std::string options;
  std::string copies = "1";
  std::string contentType = "application/pdf";
  std::string ppd = TEST_DATA "/zephrel-ps-9000.ppd";
  bool throughPipe = false;
  // More variables, which a shell may compute: TMPDIR=/x
  std::string environment = {};
  // Shell words before the command: "ulimit -f 1;"
  std::string before = {};
};

// The filter's messages and status; what it writes goes to the file.
Outcome runFilter(const FilterRun& run, const std::string& output);

// The same by CUPS's own filters, each called as a print server does.
Outcome runCupsFilters(const FilterRun& run, const std::vector<std::string>& programs,
                       const std::string& output);

// The sides that Ghostscript prints, "Coated 1": the medium, which is a type or a tray, and the
// page of report.pdf, or a "-" for a side without text.
std::vector<std::string> printedSides(const std::string& postScript);

// A checksum of the picture of each side.
std::vector<std::string> pictures(const std::string& postScript);

// A document without the date on which Ghostscript made it.
std::string withoutDate(const std::string& file);

}  // namespace publishing
