// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/OptionAssignments.h"

#include <vector>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr const char* kTrue = "true";
constexpr const char* kFalse = "false";

bool same(const std::string& left, const std::string& right) {
  return g_ascii_strcasecmp(left.c_str(), right.c_str()) == 0;
}

std::vector<PPDChoice> choicesOf(const Printer& printer, const std::string& option) {
  return printer.ppd() == nullptr ? std::vector<PPDChoice>() : printer.ppd()->choices(option);
}

[[noreturn]] void refuseChoice(const Printer& printer, const OptionAssignment& assignment,
                               const std::vector<PPDChoice>& choices) {
  std::string known;
  for (const PPDChoice& choice : choices)
    known += "\n  " + shown(choice.choice) + "  " + choice.choiceText;
  if (assignment.isSwitch) {
    throw PrintError::usage(translated("The option %s needs a choice. The choices are:%s",
                                       shown(assignment.name), known));
  }
  throw PrintError::refused(
      translated("%s has no choice \"%s\" for its option %s. The choices are:%s",
                 shown(printer.name()), shown(assignment.value), shown(assignment.name), known));
}

// An option of the PPD. The print server makes a switch of the choices True and False, which the
// filters mark all the same.
void assignChoice(const Printer& printer, JobTicket& ticket, const OptionAssignment& assignment,
                  const std::vector<PPDChoice>& choices) {
  const PPDChoice* meant = nullptr;
  for (const PPDChoice& choice : choices) {
    const bool exact = choice.choice == assignment.value;
    if (exact || (meant == nullptr && same(choice.choice, assignment.value))) meant = &choice;
    if (exact) break;
  }
  if (meant == nullptr) refuseChoice(printer, assignment, choices);
  if (same(meant->choice, kTrue) || same(meant->choice, kFalse)) {
    ticket.setSwitch(assignment.name, same(meant->choice, kTrue));
  } else {
    checkJobOption(assignment.name, meant->choice);
    ticket.setValue(assignment.name, meant->choice);
  }
}

}  // namespace

OptionAssignment OptionAssignment::parse(const Printer& printer, const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == 0 || text.empty()) {
    throw PrintError::usage(
        translated("\"%s\" does not name an option. Write it as NAME=VALUE, for example "
                   "MediaType=Coated.",
                   shown(text)));
  }
  if (equals != std::string::npos) {
    return {text.substr(0, equals), text.substr(equals + 1), false};
  }
  constexpr std::size_t kLengthOfNo = 2;
  const bool isOff =
      text.size() > kLengthOfNo && g_ascii_strncasecmp(text.c_str(), "no", kLengthOfNo) == 0;
  if (isOff && choicesOf(printer, text).empty()) return {text.substr(kLengthOfNo), kFalse, true};
  return {text, kTrue, true};
}

void assignOption(const Printer& printer, JobTicket& ticket, const OptionAssignment& assignment) {
  const auto choices = choicesOf(printer, assignment.name);
  if (!choices.empty()) {
    assignChoice(printer, ticket, assignment, choices);
  } else if (same(assignment.value, kTrue) || same(assignment.value, kFalse)) {
    checkSwitch(assignment.name);
    ticket.setSwitch(assignment.name, same(assignment.value, kTrue));
  } else {
    checkJobOption(assignment.name, assignment.value);
    ticket.setValue(assignment.name, assignment.value);
  }
}

}  // namespace publishing
