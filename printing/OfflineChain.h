// SPDX-License-Identifier: Apache-2.0
// Making the printer's PostScript without a print server.
#pragma once

#include <functional>
#include <string>

#include "printing/Document.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// Runs the CUPS filters for `printer`, a PPD alone, on the document and writes what the printer
// would get to `output`: as a whole or, when anything fails, not at all, an earlier file then being
// left alone. An output that is no regular file ("/dev/stdout") is written to directly. `goesOn` is
// asked several times a second; when it answers no, all filters are ended. Throws PrintError:
// Refused as Printer::jobOptions and checkJobTitle do, for a PPD with a PPDDocument::foreignProgram
// and when `goesOn` answered no; Usage for an output that would overwrite the document or the PPD;
// Trouble with the filters' own messages when the chain is not installed, fails, or its output
// cannot be written.
void printToFile(const Printer& printer, const JobTicket& ticket, const Document& document,
                 const std::string& title, const std::string& output,
                 const std::function<bool()>& goesOn = {});

}  // namespace publishing
