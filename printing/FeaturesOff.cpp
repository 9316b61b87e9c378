// SPDX-License-Identifier: Apache-2.0
#include "printing/FeaturesOff.h"

#include <algorithm>
#include <iterator>

namespace publishing {
namespace {

constexpr const char* kNone = "None";

bool leavesItToThePrinter(const std::string& choice) {
  return choice.find(kPrnDef) != std::string::npos;
}

bool wantsAMedium(const std::vector<PPDChoice>& choices) {
  return std::any_of(choices.begin(), choices.end(), [](const PPDChoice& choice) {
    return choice.marked && !leavesItToThePrinter(choice.choice) && choice.choice != kNone;
  });
}

}  // namespace

bool isOn(const PublishingFeature& feature, const JobTicket& ticket) {
  return ticket.getValue(feature.stateKey) == kStoredOn;
}

std::optional<std::string> choiceWhenOff(const PublishingFeature& feature, const PPDDocument& ppd) {
  const auto choices = ppd.choices(feature.option);
  const auto find = [&choices](auto&& fits) -> std::optional<std::string> {
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const PPDChoice& choice) { return fits(choice.choice); });
    return found != choices.end() ? std::optional(found->choice) : std::nullopt;
  };
  if (const auto printerDefault = find(leavesItToThePrinter)) return printerDefault;
  return find([](const std::string& choice) { return choice == kNone; });
}

void takeOutMediaOff(JobTicket& ticket, Printer& printer) {
  for (const PublishingFeature& feature : kFeatures) {
    if (!isOn(feature, ticket)) ticket.setValue(feature.option, std::nullopt);
  }
  printer.mark(ticket);
  if (printer.ppd() == nullptr) return;
  for (const PublishingFeature& feature : kFeatures) {
    if (isOn(feature, ticket) || !wantsAMedium(printer.ppd()->choices(feature.option))) continue;
    ticket.setValue(feature.option, choiceWhenOff(feature, *printer.ppd()));
  }
  printer.mark(ticket);
}

std::vector<Conflict> conflictsOf(const JobTicket& ticket, const PPDDocument& ppd) {
  const auto isOff = [&ticket](const PPDChoice& choice) {
    return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](const auto& feature) {
      return choice.option == feature.option && !isOn(feature, ticket);
    });
  };
  std::vector<Conflict> conflicts = ppd.conflicts();
  std::erase_if(conflicts, [&isOff](const Conflict& conflict) {
    return std::any_of(conflict.choices.begin(), conflict.choices.end(), isOff);
  });
  return conflicts;
}

}  // namespace publishing
