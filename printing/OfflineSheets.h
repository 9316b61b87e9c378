// SPDX-License-Identifier: Apache-2.0
// Covers and inserts without a print server: the filter that makes them on one is run directly.
#pragma once

#include <string>
#include <vector>

#include "printing/Document.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// The command that writes the PostScript of a job with its covers and inserts to standard output;
// empty when CUPS's own filters do: for a job without covers and inserts, for a printer that takes
// no PostScript, and where the filter is not installed, so that the printer's driver has to make
// them. `printer` is a PPD alone. Throws PrintError (Trouble) when the PPD asks for the filter and
// it is not installed.
std::vector<std::string> sheetFilterCommand(const Printer& printer,
                                            const JobTicket::Options& options,
                                            const Document& document, const std::string& title);

// That the printer's own driver has to make the covers and inserts of a job with these options, and
// how an administrator adds them, for the user; empty when there are none to make or a filter makes
// them.
std::string noteOnSheets(const Printer& printer, const JobTicket::Options& options);

// The same for a job with covers or inserts on a queue.
std::string noteOnDriver(const Printer& queue);

}  // namespace publishing
