// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// Puts "NAME=VALUE" assignments into the ticket and renews the printer's marks. Throws PrintError:
// Usage for a text that is no assignment, Refused for a value that cannot be sent or for a choice
// that the printer's PPD does not have.
void assignOptions(Printer& printer, JobTicket& ticket,
                   const std::vector<std::string>& assignments);

}  // namespace publishing
