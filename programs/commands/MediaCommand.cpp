// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/MediaCommand.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"
#include "printing/JobTicket.h"
#include "programs/commands/OptionAssignments.h"
#include "programs/commands/PrinterArgument.h"
#include "programs/terminal/Terminal.h"
#include "shells/MediaReason.h"
#include "shells/headless/PanelUser.h"

namespace publishing {
namespace {

using nlohmann::json;

struct MediaOptions {
  PrinterArgument printer;
  std::vector<std::string> marks;
  bool json = false;
};

// What the choice would exclude, "Paper Source: Tray 3".
std::string textOf(const std::vector<PPDChoice>& excluded) {
  std::string text;
  for (const PPDChoice& choice : excluded)
    text += (text.empty() ? "" : ", ") + choice.optionText + ": " + choice.choiceText;
  return text;
}

// The items of one pop-up as the panel offers them. The panel looks at trays alone; a medium that
// excludes another choice of the job would be refused later.
json mediaOf(PanelUser& user, const Printer& printer, const PublishingFeature& feature) {
  const char* option = feature.option;
  const HeadlessPopUpButton& menu = user.popUp(feature.popUp);
  const auto excluded = printer.ppd() == nullptr ? std::map<std::string, std::vector<PPDChoice>>()
                                                 : printer.ppd()->excludedBy(option);
  const auto choices =
      printer.ppd() != nullptr ? printer.ppd()->choices(option) : std::vector<PPDChoice>();
  json items = json::array();
  for (std::int64_t index = 0; index < menu.numberOfItems(); ++index) {
    const std::string& choice = choices.at(static_cast<std::size_t>(index)).choice;
    const auto conflict = excluded.find(choice);
    const bool isOffered = menu.isItemEnabledAtIndex(index);
    json item = {{"choice", choice},
                 {"text", menu.itemTitleAtIndex(index)},
                 {"allowed", isOffered && conflict == excluded.end()}};
    if (!isOffered) {
      item["reason"] = reasonAgainstMedia(user.panel(), printer, option, index);
    } else if (conflict != excluded.end()) {
      item["reason"] = translated("conflicts with %s", textOf(conflict->second));
    }
    items.push_back(std::move(item));
  }
  return {{"option", option}, {"items", std::move(items)}};
}

std::size_t longestChoice(const json& items) {
  std::size_t longest = 0;
  for (const json& item : items) {
    longest = std::max(longest, shown(item["choice"]).size());
  }
  return longest;
}

void printMedia(const std::string& heading, const json& media) {
  const json& items = media["items"];
  say(heading + " (" + media["option"].get<std::string>() + ")");
  if (items.empty()) say("  " + translated("none"));
  const std::size_t width = longestChoice(items);
  for (const json& item : items) {
    std::string line = shown(item["choice"]);
    line.resize(std::max(width, line.size()), ' ');
    line = "  " + line + "  " + shown(item["text"]);
    if (item.contains("reason")) {
      line += " (" + translated("not available: %s", item["reason"].get<std::string>()) + ")";
    }
    say(line);
  }
}

ExitStatus runMedia(const MediaOptions& options) {
  Printer printer = options.printer.open();
  JobTicket ticket = printer.newTicket();
  for (const std::string& mark : options.marks)
    assignOption(printer, ticket, OptionAssignment::parse(printer, mark));
  printer.mark(ticket);
  PanelUser user(printer, ticket);
  offerAgain(user.panel(), PanelControls(user.panel()));
  const json report = {{"printer", printer.name()},
                       {"cover", mediaOf(user, printer, kCoverMode)},
                       {"insert", mediaOf(user, printer, kPageInsert)}};
  if (options.json) {
    sayJson(report);
  } else {
    printMedia(translated("Cover media"), report["cover"]);
    printMedia(translated("Insert media"), report["insert"]);
  }
  return kDone;
}

}  // namespace

void addMediaCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<MediaOptions>();
  CLI::App* command =
      app.add_subcommand("media", translated("List the media for covers and inserts"));
  addPrinterArgument(*command, options->printer);
  command
      ->add_option("--mark", options->marks,
                   translated("List as if this printer option were chosen (repeatable)"))
      ->type_name("OPTION=CHOICE")
      ->expected(1)
      ->take_all();
  command->add_flag("--json", options->json, translated("Write the result as JSON"));
  command->callback([options, &status] { status = runMedia(*options); });
}

}  // namespace publishing
