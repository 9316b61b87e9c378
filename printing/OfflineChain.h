// Making the printer's PostScript without a print server.
#pragma once

#include <string>

#include "printing/Document.h"
#include "printing/JobTicket.h"

namespace publishing {

// Runs the CUPS filters for the PPD on the document and writes what the printer would get to
// `output`: as a whole or, when anything fails, not at all, an earlier file then being left alone.
// "/dev/stdout" and other files that are no regular files are written to directly. Throws
// PrintError: Refused as JobTicket::jobOptions does, Trouble with the filters' own messages when
// the chain is not installed, fails, or its output cannot be written.
void printToFile(const std::string& ppd, const JobTicket& ticket, const Document& document,
                 const std::string& title, const std::string& output);

}  // namespace publishing
