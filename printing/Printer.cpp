// SPDX-License-Identifier: Apache-2.0
#include "printing/Printer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/JobLayout.h"
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

std::string factOf(const cups_dest_t& destination, const char* name) {
  const char* value = cupsGetOption(name, destination.num_options, destination.options);
  return value != nullptr ? shown(value) : std::string();
}

Printer::Obstacles obstaclesOf(const cups_dest_t& destination) {
  Printer::Obstacles obstacles;
  if (factOf(destination, "printer-is-accepting-jobs") == "false") {
    obstacles.rejects = translated(
        "The queue %s takes no jobs at present. Allow them with cupsaccept %s, or choose "
        "another queue.",
        destination.name, destination.name);
  }
  if (factOf(destination, "printer-state") == std::to_string(IPP_PSTATE_STOPPED)) {
    obstacles.waits = translated(
        "The queue %s is paused: the job waits there until cupsenable %s starts it again.",
        destination.name, destination.name);
  }
  return obstacles;
}

}  // namespace

Printer::Printer(std::string name, bool isQueue, std::optional<PPDDocument> ppd,
                 JobTicket::Options defaults)
    : name_(std::move(name)),
      isQueue_(isQueue),
      ppd_(std::move(ppd)),
      defaults_(std::move(defaults)) {
  mark(JobTicket());
  if (!ppd_) return;
  defaultSides_ = ppd_->markedSides();
  for (const PPDChoice& order : ppd_->choices(kOutputOrder))
    defaultIsReverse_ = defaultIsReverse_ || (order.marked && order.choice == "Reverse");
}

Printer Printer::fromDestination(http_t* http, const cups_dest_t& destination) {
  Printer printer(destination.name, true, PPDDocument::fetch(http, destination.name),
                  jobOptionsOf(destination));
  if (destination.instance != nullptr) printer.instance_ = destination.instance;
  printer.obstacles_ = obstaclesOf(destination);
  return printer;
}

Printer Printer::openQueue(const std::string& name) {
  const QueueName parsed = QueueName::parse(name);
  const HttpHandle http = connectToServer();
  return fromDestination(http.get(), *findQueue(http.get(), parsed));
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
  const JobLayout layout = layoutOf(defaults_);
  if (layout.numberUp && JobTicket::isLayout(*layout.numberUp)) {
    ticket.setNumberUp(*layout.numberUp);
  }
  ticket.setBooklet(layout.booklet.value_or(false));
  if (layout.reverse.value_or(defaultIsReverse_)) ticket.setReverse(true);
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
  const bool hasOrder = layoutOf(options).reverse.has_value();
  for (const auto& [name, value] : defaults_) {
    if (hasSides && isDuplexOption(name)) continue;
    if (hasOrder && isOutputOrder(name)) continue;
    if (findJobOption(options, name) == options.end()) options.emplace(name, value);
  }
  return options;
}

}  // namespace publishing
