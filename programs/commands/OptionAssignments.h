// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "printing/JobTicket.h"
#include "printing/Printer.h"

namespace publishing {

// An option as -o and --mark take it: "NAME=VALUE", or "NAME" and "noNAME" for NAME=true and
// NAME=false. Everything behind the first "=" is the value, blanks included.
struct OptionAssignment {
  std::string name;
  std::string value;      // "true" or "false" of a switch
  bool isSwitch = false;  // written without a value

  // Throws PrintError (Usage) for a text that names no option. A name that begins with "no" is that
  // of a switch which is off, unless the printer's PPD has an option of that very name.
  static OptionAssignment parse(const Printer& printer, const std::string& text);
};

// Puts the assignment into the ticket. A choice of the printer's PPD may be written in any case.
// Throws PrintError: Refused for a value that cannot be sent or for a choice that the PPD does not
// have, Usage for an option of the PPD that needs a choice and has none.
void assignOption(const Printer& printer, JobTicket& ticket, const OptionAssignment& assignment);

}  // namespace publishing
