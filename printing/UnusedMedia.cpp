// SPDX-License-Identifier: Apache-2.0
#include "printing/UnusedMedia.h"

#include <string>

#include "Publishing/PublishingFeatures.h"

namespace publishing {
namespace {

constexpr const char* kNone = "None";

bool isNoMedium(const std::string& choice) {
  return choice.empty() || choice == kNone || choice.find(kPrnDef) != std::string::npos;
}

// The choice that a job without the option is printed with.
std::string defaultChoice(const Printer& printer, const char* option) {
  const auto stated = findJobOption(printer.defaults(), option);
  if (stated != printer.defaults().end()) return stated->second;
  for (const PPDChoice& choice : printer.ppd()->choices(option)) {
    if (choice.marked) return choice.choice;
  }
  return {};
}

std::optional<std::string> choiceForNoMedium(const PPDDocument& ppd, const char* option) {
  for (const PPDChoice& choice : ppd.choices(option)) {
    if (choice.choice.find(kPrnDef) != std::string::npos) return choice.choice;
  }
  return ppd.choice(option, kNone) ? std::optional<std::string>(kNone) : std::nullopt;
}

}  // namespace

void leaveOutUnusedMedia(Printer& printer, JobTicket& ticket) {
  for (const PublishingFeature& feature : kFeatures) {
    if (ticket.getValue(feature.stateKey) != kStoredOn) {
      ticket.setValue(feature.option, std::nullopt);
    }
  }
  printer.mark(ticket);
  if (printer.ppd() == nullptr) return;
  for (const PublishingFeature& feature : kFeatures) {
    const bool isOn = ticket.getValue(feature.stateKey) == kStoredOn;
    if (isOn || isNoMedium(defaultChoice(printer, feature.option))) continue;
    ticket.setValue(feature.option, choiceForNoMedium(*printer.ppd(), feature.option));
  }
  printer.mark(ticket);
}

}  // namespace publishing
