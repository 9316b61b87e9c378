// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// Takes the medium of covers and of inserts out of the ticket where the panel's feature is off.
// Where the printer's or the user's default would bring one in all the same, the ticket says that
// there is none: "PrnDef", or "None" in a PPD without that choice. Renews the printer's marks.
// Throws as Printer::mark does.
void leaveOutUnusedMedia(Printer& printer, JobTicket& ticket);

}  // namespace publishing
