// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/JobWishes.h"

#include <glib.h>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/JobLayout.h"
#include "printing/OptionEncoding.h"
#include "printing/PrintError.h"
#include "programs/commands/Arguments.h"
#include "programs/commands/OptionAssignments.h"

namespace publishing {
namespace {

constexpr const char* kNone = "none";
constexpr const char* kPageRanges = "page-ranges";

bool same(const std::string& left, const char* right) {
  return g_ascii_strcasecmp(left.c_str(), right) == 0;
}

template <class Value>
void wish(std::optional<Value>& known, const Value& value, const std::string& option) {
  if (known && *known != value) {
    throw PrintError::refused(translated(
        "%s contradicts another option of the command line. Give one of them.", shown(option)));
  }
  known = value;
}

int number(const std::string& name, const std::string& value) {
  const auto read = wholeNumber(value);
  if (read) return *read;
  throw PrintError::usage(translated("%s needs a whole number, not \"%s\".", name, shown(value)));
}

Sides sidesOf(const std::string& value) {
  const auto sides = sidesFromKeyword(value);
  if (sides) return *sides;
  throw PrintError::usage(translated("%s does not take \"%s\". It takes: %s.", "sides",
                                     shown(value),
                                     "one-sided, two-sided-long-edge, two-sided-short-edge"));
}

// The filters leave out what they cannot read of a list, without a word.
void checkPageRanges(const std::string& ranges) {
  const auto arriving = valueForFilters(kPageRanges, ranges);
  if (arriving == ranges && ranges.front() != '0') return;
  throw PrintError::usage(
      translated("\"%s\" is not a list of pages. Write it in ascending order, as in 1-4,7,9-12.",
                 shown(ranges)));
}

}  // namespace

// A medium for the covers or the inserts; "None" is none of them.
bool JobWishes::takeMedium(const std::string& name, const std::string& value) {
  const bool isCover = same(name, cCoverMediaType);
  if (!isCover && !same(name, cPageMediaType)) return false;
  const std::string option = name + "=" + value;
  if (same(value, kNone)) {
    wish<std::string>(isCover ? panel.cover : panel.insert, kNone, option);
  } else {
    wish(isCover ? panel.coverMedia : panel.insertMedia, value, option);
  }
  return true;
}

bool JobWishes::takeLayout(const std::string& name, const std::string& value) {
  const std::string option = name + "=" + value;
  if (same(name, "number-up")) {
    wish(numberUp, number(name, value), option);
  } else if (same(name, "copies")) {
    wish(copies, number(name, value), option);
  } else if (same(name, "sides")) {
    wish(sides, sidesOf(value), option);
  } else if (same(name, kPageRanges)) {
    wish(pages, value, option);
  } else if (isOutputOrder(name)) {
    wish(reverse, *layoutOf({{name, value}}).reverse, option);
  } else {
    return false;
  }
  return true;
}

void JobWishes::take(Printer& printer, JobTicket& ticket, const std::string& option) {
  const auto assignment = OptionAssignment::parse(printer, option);
  if (takeMedium(assignment.name, assignment.value)) return;
  if (takeLayout(assignment.name, assignment.value)) return;
  if (const auto wished = layoutOf({{assignment.name, assignment.value}}).booklet) {
    wish(booklet, *wished, option);
  }
  assignOption(printer, ticket, assignment);
  if (printer.ppd() == nullptr || !isDuplexOption(assignment.name)) return;
  // The printer's own option for two-sided printing.
  printer.ppd()->mark(assignment.name, ticket.getValue(assignment.name).value_or(""));
  if (const auto marked = printer.ppd()->markedSides()) wish(sides, *marked, option);
}

void JobWishes::applyTo(Printer& printer, JobTicket& ticket) {
  for (const std::string& option : options)
    take(printer, ticket, option);
  if (sides) ticket.setSides(*sides);
  if (numberUp) ticket.setNumberUp(*numberUp);
  if (reverse) ticket.setReverse(*reverse);
  if (booklet) ticket.setBooklet(*booklet);
  if (copies) ticket.setCopies(*copies);
  if (pages) {
    checkPageRanges(*pages);
    ticket.setValue(kPageRanges, *pages);
  }
  printer.mark(ticket);
}

}  // namespace publishing
