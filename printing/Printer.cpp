// SPDX-License-Identifier: Apache-2.0
#include "printing/Printer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"

namespace publishing {
namespace {

// libcups mixes what it knows of a queue with the options for its jobs.
bool isJobOption(std::string_view name) {
  static constexpr std::array kQueueFacts = {"printer-",  "marker-",          "device-uri",
                                             "auth-info", "job-cancel-after", "cups-"};
  return std::none_of(kQueueFacts.begin(), kQueueFacts.end(),
                      [name](const char* prefix) { return name.starts_with(prefix); });
}

JobTicket::Options jobOptionsOf(const cups_dest_t& destination) {
  JobTicket::Options options;
  for (int i = 0; i < destination.num_options; ++i) {
    const cups_option_t& option = destination.options[i];
    if (isJobOption(option.name)) options.insert_or_assign(option.name, option.value);
  }
  return options;
}

bool isDuplexOption(const std::string& name) {
  return std::find(std::begin(kDuplexOptions), std::end(kDuplexOptions), name) !=
         std::end(kDuplexOptions);
}

}  // namespace

Printer::Printer(std::string name, bool isQueue, std::optional<PPDDocument> ppd,
                 JobTicket::Options defaults)
    : name_(std::move(name)),
      isQueue_(isQueue),
      ppd_(std::move(ppd)),
      defaults_(std::move(defaults)) {
  mark(JobTicket());
  if (ppd_) defaultSides_ = ppd_->markedSides();
}

Printer Printer::fromDestination(http_t* http, const cups_dest_t& destination) {
  return {destination.name, true, PPDDocument::fetch(http, destination.name),
          jobOptionsOf(destination)};
}

Printer Printer::openQueue(const std::string& name) {
  checkQueueName(name);
  const HttpHandle http = connectToServer();
  return fromDestination(http.get(), *findQueue(http.get(), name));
}

Printer Printer::openDefaultQueue() {
  const HttpHandle http = connectToServer();
  return fromDestination(http.get(), *findDefaultQueue(http.get()));
}

Printer Printer::openPPD(const std::string& path) {
  return {path, false, PPDDocument::openFile(path), {}};
}

std::vector<std::string> Printer::warnings() const {
  if (ppd_) return ppd_->warnings();
  return {translated(
      "The queue %s has no PPD: covers and inserts need a Zephrel PostScript driver.", name_)};
}

JobTicket Printer::newTicket() const {
  JobTicket ticket;
  const auto valueOf = [this](const char* name) {
    const auto entry = defaults_.find(name);
    return entry == defaults_.end() ? std::string() : entry->second;
  };
  const auto stated = defaultSides_ ? defaultSides_ : sidesFromKeyword(valueOf("sides"));
  ticket.setSides(stated.value_or(Sides::OneSided));
  const int pages = std::atoi(valueOf("number-up").c_str());
  if (JobTicket::isLayout(pages)) ticket.setNumberUp(pages);
  if (valueOf(kOutputOrder) == "Reverse") ticket.setReverse(true);
  return ticket;
}

// In two steps: sides in the ticket must win over a duplex choice in the defaults.
void Printer::mark(const JobTicket& ticket) {
  if (!ppd_) return;
  const JobTicket::Options options = ticket.jobOptions();
  ppd_->markDefaults();
  ppd_->mark(defaults_);
  ppd_->mark(options);
}

JobTicket::Options Printer::jobOptions(const JobTicket& ticket) const {
  JobTicket::Options options = ticket.jobOptions();
  for (const char* option : {cCoverMediaType, cPageMediaType}) {
    const auto choice = options.find(option);
    if (!ppd_ || choice == options.end() || ppd_->choice(option, choice->second)) continue;
    throw PrintError::refused(
        translated("The printer %s has no choice \"%s\" for %s. Choose another medium.",
                   shown(name_), shown(choice->second), option));
  }
  const bool hasSides = options.contains("sides");
  for (const auto& [name, value] : defaults_) {
    if (hasSides && isDuplexOption(name)) continue;
    if (findJobOption(options, name) == options.end()) options.emplace(name, value);
  }
  return options;
}

}  // namespace publishing
