// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "printing/JobTicket.h"
#include "printing/ppd/PPDDocument.h"

namespace publishing {

// The papers of one job by name. Texts are those of the PPD's menus, fit to be shown.
struct SheetMedia {
  // The marked tray and type of paper, as in "Tray1/Plain" and "Plain Paper (Tray 1)".
  std::string bodyKeyword;
  std::string bodyText;
  // What is chosen for covers and inserts, also when that leaves the paper to the printer.
  std::string coverText;
  std::string insertText;
  // Those of them that Sheet::medium names, by keyword.
  std::map<std::string, std::string> texts;

  // Of Sheet::medium.
  [[nodiscard]] const std::string& textOf(const std::string& medium) const;
};

// `ppd` has the job's choices marked; null for a printer without a PPD.
SheetMedia mediaOf(const JobTicket::Options& options, const PPDDocument* ppd);

}  // namespace publishing
