// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/JobTicket.h"
#include "printing/SheetMedia.h"
#include "printing/ppd/PPDDocument.h"
#include "sheets/SheetOrder.h"
#include "sheets/SheetPicture.h"
#include "sheets/SheetPlan.h"

namespace publishing {

// What one document of a job looks like on paper, as far as it is known before it is printed.
struct JobSheets {
  SheetOrder order;
  // Nothing while it is not known how many pages are printed.
  std::optional<SheetPlan> plan;
  int pages = 0;  // of the plan
  SheetMedia media;
  // Whether pages are left out, so that page 1 need not be the document's.
  bool leavesOutPages = false;
};

// Documents with more pages count as if their number were not known.
inline constexpr int kMostPlannedPages = 100000;

// `options` are those that the job is sent with, `ppd` has them marked and may be null for a
// printer without one; `documentPages` is how many pages the document has, if that is known.
JobSheets sheetsOf(const JobTicket::Options& options, const PPDDocument* ppd,
                   std::optional<int> documentPages);

// What the job does not get, in the user's language.
std::vector<std::string> warningsOf(const JobSheets& job);

// The picture, or the scheme while the number of pages is not known. The names of the papers are
// filled into `options`.
SheetPicture pictureOf(const JobSheets& job, PictureOptions options);

}  // namespace publishing
