// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "printing/JobTicket.h"

namespace publishing {

// What a print dialog's own tabs say of the job at one moment, as far as the panel asks for it.
struct DialogJob {
  Sides sides = Sides::OneSided;
  int numberUp = 1;
  bool reverse = false;
  std::map<std::string, std::string> options;  // choice keywords by PPD option

  // For what the user is shown alone, the panel does not ask for it.
  int copies = 1;
  bool collated = false;
  std::string pageRanges = {};  // those that are printed, as in "1-4,7"; empty: all
  std::string pageSet = {};     // "even" or "odd" pages of them; empty: all
};

}  // namespace publishing
