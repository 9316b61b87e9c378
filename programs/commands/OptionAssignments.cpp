// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/OptionAssignments.h"

#include <algorithm>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

// Throws when the option is one of the PPD and the choice is not.
void checkChoice(const Printer& printer, const std::string& option, const std::string& choice) {
  if (printer.ppd() == nullptr) return;
  std::string known;
  for (const PPDChoice& candidate : printer.ppd()->choices(option)) {
    if (candidate.choice == choice) return;
    known += "\n  " + shown(candidate.choice) + "  " + candidate.choiceText;
  }
  if (known.empty()) return;  // not the PPD's: a job option for the server
  throw PrintError::refused(
      translated("%s has no choice \"%s\" for its option %s. The choices are:%s", printer.name(),
                 shown(choice), option, known));
}

}  // namespace

void assignOptions(Printer& printer, JobTicket& ticket,
                   const std::vector<std::string>& assignments) {
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0) {
      throw PrintError::usage(
          translated("\"%s\" does not name an option and its value. Write it as "
                     "NAME=VALUE, for example MediaType=Coated.",
                     shown(assignment)));
    }
    const std::string name = assignment.substr(0, equals);
    const std::string value = assignment.substr(equals + 1);
    checkJobOption(name, value);
    checkChoice(printer, name, value);
    ticket.setValue(name, value);
  }
  printer.mark(ticket);
}

}  // namespace publishing
