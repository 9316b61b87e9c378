// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PagesCommand.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Publishing/PageListAlert.h"
#include "Publishing/parseNum.h"
#include "base/Translation.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

struct PagesOptions {
  bool twoSided = false;
  std::int64_t coverValue = 0;
  bool json = false;
  std::string list;
};

ExitStatus runPages(const PagesOptions& options) {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  const std::int32_t result = ParsePageNumber(options.list, &pages, &count, options.twoSided,
                                              options.coverValue, kHighestPage, kMostPages);
  if (options.json) {
    const nlohmann::ordered_json report = {{"result", result}, {"count", count}, {"pages", pages}};
    say(report.dump());
  }
  if (result != kPageListOK) {
    const auto [title, message] = alertForPageList(result, options.twoSided, options.coverValue);
    warn(translated(title) + ": " + translated(message));
    return kRefused;
  }
  if (!options.json) {
    for (const std::int32_t page : pages)
      say(std::to_string(page));
  }
  return kDone;
}

}  // namespace

void addPagesCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<PagesOptions>();
  CLI::App* command = app.add_subcommand("pages", translated("Check a list of pages for inserts"));
  command->add_flag("--two-sided", options->twoSided, translated("The job prints on both sides"));
  command
      ->add_option("--cover-value", options->coverValue,
                   translated("Printed cover sides: sum of 1 front outside, 2 front inside, "
                              "4 back outside, 8 back inside"))
      ->check(CLI::Range(0, 32));
  command->add_flag("--json", options->json, translated("Write the result as JSON"));
  command->add_option("LIST", options->list, translated("Pages and ranges, as in 5,8,12-14"))
      ->required();
  command->callback([options, &status] { status = runPages(*options); });
}

}  // namespace publishing
