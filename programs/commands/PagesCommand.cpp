// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PagesCommand.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Publishing/PageListAlert.h"
#include "Publishing/parseNum.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/commands/Arguments.h"
#include "programs/commands/Failure.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

struct PagesArguments {
  bool twoSided = false;
  std::optional<int> coverValue;
  bool json = false;
  std::string list;
};

constexpr int kLargestCoverValue = 32;

struct Check {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  std::int32_t result = 0;
  std::optional<PageListAlert> alert;  // the panel's, when it refuses the list
};

Check checkList(const PagesArguments& arguments) {
  const std::int64_t cover = arguments.coverValue.value_or(0);
  Check check;
  check.result = ParsePageNumber(arguments.list, &check.pages, &check.count, arguments.twoSided,
                                 cover, kHighestPage, kMostPages);
  check.alert = alertForPageText(arguments.list);
  if (!check.alert && check.result != kPageListOK) {
    check.alert = alertForPageList(check.result, arguments.twoSided, cover);
  }
  return check;
}

ExitStatus runPages(const PagesArguments& arguments) {
  if (arguments.coverValue.value_or(0) > kLargestCoverValue) {
    throw PrintError::usage(
        translated("%s is a number between 0 and %d.", "--cover-value", kLargestCoverValue));
  }
  const Check check = checkList(arguments);
  nlohmann::ordered_json report = {{"result", check.result},
                                   {"count", check.count},
                                   {"pages", check.pages},
                                   {"accepted", !check.alert}};
  if (check.alert) {
    const auto error = PrintError::refused(translated(check.alert->title) + ": " +
                                           translated(check.alert->message));
    warn(error.what());
    report["error"] = failureAsJson(error);
  }
  if (arguments.json) {
    sayJson(report);
  } else if (!check.alert) {
    for (const std::int32_t page : check.pages)
      say(std::to_string(page));
  }
  return check.alert ? kRefused : kDone;
}

}  // namespace

void addPagesCommand(CLI::App& app, ExitStatus& status) {
  auto arguments = std::make_shared<PagesArguments>();
  CLI::App* command = app.add_subcommand("pages", translated("Check a list of pages for inserts"));
  command->add_flag("--two-sided", arguments->twoSided, translated("The job prints on both sides"));
  addNumber(*command, "--cover-value", arguments->coverValue,
            translated("Printed cover sides: sum of 1 front outside, 2 front inside, "
                       "4 back outside, 8 back inside"));
  command->add_flag("--json", arguments->json, translated("Write the result as JSON"));
  command->add_option("LIST", arguments->list, translated("Pages and ranges, as in 5,8,12-14"))
      ->required();
  command->callback([arguments, &status] { status = runPages(*arguments); });
}

}  // namespace publishing
