// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/MediaCommand.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
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
#include "shells/PanelDump.h"
#include "shells/headless/PanelUser.h"

namespace publishing {
namespace {

using nlohmann::json;

struct MediaOptions {
  PrinterArgument printer;
  std::vector<std::string> marks;
  bool json = false;
};

// The items of one pop-up as the panel offers them.
json mediaOf(PanelUser& user, const Printer& printer, const PublishingFeature& feature) {
  const char* option = feature.option;
  const HeadlessPopUpButton& menu = user.popUp(feature.popUp);
  json items = json::array();
  for (std::int64_t index = 0; index < menu.numberOfItems(); ++index) {
    json item = {{"choice", user.choiceOfItem(option, index)},
                 {"text", menu.itemTitleAtIndex(index)},
                 {"allowed", menu.isItemEnabledAtIndex(index)}};
    if (!menu.isItemEnabledAtIndex(index)) {
      item["reason"] = reasonAgainstMedia(user.panel(), printer, option, index);
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
  std::cout << heading << " (" << media["option"].get<std::string>() << ")\n";
  if (items.empty()) std::cout << "  " << translated("none") << '\n';
  const auto width = static_cast<int>(longestChoice(items));
  for (const json& item : items) {
    std::cout << "  " << std::left << std::setw(width) << shown(item["choice"]) << "  "
              << shown(item["text"]);
    if (item.contains("reason")) {
      std::cout << " (" << translated("not available: %s", item["reason"].get<std::string>())
                << ')';
    }
    std::cout << '\n';
  }
}

ExitStatus runMedia(const MediaOptions& options) {
  Printer printer = options.printer.open();
  JobTicket ticket = printer.newTicket();
  assignOptions(printer, ticket, options.marks);
  PanelUser user(printer, ticket);
  const json report = {{"printer", printer.name()},
                       {"cover", mediaOf(user, printer, kCoverMode)},
                       {"insert", mediaOf(user, printer, kPageInsert)}};
  if (options.json) {
    say(jsonLine(report));
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
