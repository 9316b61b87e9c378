// SPDX-License-Identifier: Apache-2.0
#include "printing/JobSheets.h"

#include <utility>

#include "printing/PrintedPages.h"
#include "printing/SheetWarningText.h"
#include "printing/ppd/MarkedFacts.h"

namespace publishing {
namespace {

// A printer without a PPD prints on both sides when it is asked to.
PrinterFacts factsOf(const PPDDocument* ppd) {
  return ppd == nullptr ? PrinterFacts{} : markedFacts(ppd->get());
}

}  // namespace

JobSheets sheetsOf(const JobTicket::Options& options, const PPDDocument* ppd,
                   std::optional<int> documentPages) {
  JobSheets job;
  job.order = readSheetOrder(options, factsOf(ppd));
  job.media = mediaOf(options, ppd);
  job.leavesOutPages = leavesOutPages(options);
  if (!documentPages) return job;
  const std::optional<int> pages = printedPages(*documentPages, options);
  if (!pages || *pages > kMostPlannedPages) return job;
  job.pages = *pages;
  job.plan = planSheets(job.order, *pages);
  return job;
}

std::vector<std::string> warningsOf(const JobSheets& job) {
  std::vector<std::string> texts;
  for (const SheetWarning& warning : job.plan ? job.plan->warnings : job.order.warnings)
    texts.push_back(textOf(warning));
  return texts;
}

SheetPicture pictureOf(const JobSheets& job, PictureOptions options) {
  options.mediumNames = job.media.texts;
  options.bodyMediumName = job.media.bodyText;
  return job.plan ? pictureOf(*job.plan, options) : schemeOf(job.order, options);
}

}  // namespace publishing
