// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "base/Translation.h"
#include "printing/ppd/PPDDocument.h"

namespace publishing {

// What a host says or asks in a window of its own, in the user's language.
struct HostMessage {
  std::string title;
  std::string text;
};

// One text a line.
std::string linesOf(const std::vector<std::string>& texts);

// Which choices the printer cannot combine, naming both sides of each, a line for each. The
// answers, in English with "_" before the mnemonic; going back is the default.
HostMessage conflictMessage(const std::vector<Conflict>& conflicts);
inline constexpr const char* kPrintAnyway = N_("Print _Anyway");
inline constexpr const char* kGoBack = N_("_Go Back");

// What of the remembered covers and inserts the job cannot have; and the answer that prints without
// it, which is the default.
HostMessage lossMessage(const std::string& losses);
inline constexpr const char* kPrintWithout = N_("Print the _Rest");

// The check box that says whether choices are remembered for the printer, and its tooltip.
inline constexpr const char* kRememberChoices = N_("Remember choice_s");
inline constexpr const char* kRememberHint =
    N_("Start with these covers and inserts the next time you print on this printer. Without the "
       "tick, what is remembered for it is forgotten when you print.");

// That the help could not be shown; `folder` is the one that holds the help book.
HostMessage missingHelpMessage(const std::string& folder);

}  // namespace publishing
