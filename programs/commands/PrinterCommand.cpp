// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrinterCommand.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/AtomicFile.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"
#include "printing/covers/CoversCheck.h"
#include "printing/covers/CoversPPD.h"
#include "printing/covers/QueueDriver.h"
#include "printing/ppd/PPDDocument.h"
#include "programs/commands/Failure.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

using nlohmann::json;

constexpr std::size_t kLargestPPD = 16 << 20;

enum class Action { Enable, Disable, Status };

struct PrinterOptions {
  std::vector<std::string> queues;
  bool all = false;
  std::string ppd;
  std::string output;
  bool json = false;
};

// What became of one queue or PPD.
struct Report {
  std::string printer;
  std::optional<CoversState> state;  // afterwards; nothing when its PPD could not be had
  bool changed = false;
  std::optional<PrintError> error;
};

// --- telling ---

json asJson(const Report& report) {
  const auto orNull = [](const std::string& text) { return text.empty() ? json() : json(text); };
  json entry = {{"printer", report.printer}, {"changed", report.changed}};
  if (report.state) {
    const CoversState& state = *report.state;
    entry["enabled"] = state.enabled;
    entry["kind"] = nameOf(state.verdict.kind);
    entry["possible"] = state.verdict.reason.empty();
    entry["reason"] = orNull(state.verdict.reason);
    entry["bypass"] = orNull(state.bypass);
  }
  if (report.error) {
    entry["error"] = failureAsJson(*report.error);
  }
  return entry;
}

std::string textOf(Action action, const Report& report) {
  const CoversState& state = *report.state;
  const char* text = nullptr;
  if (action == Action::Status) {
    if (!state.enabled && !state.verdict.reason.empty())
      return translated("%s cannot have covers and inserts. %s", report.printer,
                        state.verdict.reason);
    text = state.enabled ? N_("%s has covers and inserts.")
                         : N_("%s has no covers and inserts yet: publishing printer enable.");
  } else if (action == Action::Enable) {
    text = report.changed ? N_("%s has covers and inserts now.")
                          : N_("Nothing to do: %s has covers and inserts already.");
  } else {
    text = report.changed ? N_("%s has its driver back as it was, without covers and inserts.")
                          : N_("Nothing to do: %s has no covers and inserts.");
  }
  return translated(text, report.printer);
}

void tell(Action action, const Report& report) {
  if (report.error) {
    warn(report.printer + ": " + report.error->what());
    return;
  }
  say(textOf(action, report));
  if (report.state->bypass.empty()) return;
  warn(
      translated("%s: jobs can go around the filter for covers, because its PPD has the line %s. "
                 "Enable it again.",
                 report.printer, shown(report.state->bypass)));
}

// Printers that cannot have covers are no failure where all were meant.
ExitStatus conclude(Action action, const std::vector<Report>& reports,
                    const PrinterOptions& options) {
  ExitStatus status = kDone;
  json list = json::array();
  for (const Report& report : reports) {
    if (options.json) {
      list.push_back(asJson(report));
    } else {
      tell(action, report);
    }
    if (!report.error || (options.all && report.error->kind() == PrintError::Kind::Refused))
      continue;
    status = std::max(status, exitStatusOf(report.error->kind()));
  }
  if (options.json) sayJson(json{{"printers", list}});
  return status;
}

// --- doing ---

// The PPD as it is to be.
std::string changed(Action action, const std::string& printer, const std::string& ppd) {
  if (action == Action::Status) return ppd;
  if (action == Action::Disable) return withoutCovers(ppd);
  std::string text = withCovers(ppd);
  if (text != ppd) checkCovers(text, printer);
  return text;
}

// Calls `work`, which fills the report in, and keeps what went wrong.
template <class Work>
Report reportOn(const std::string& printer, Work work) {
  Report report;
  report.printer = shown(printer);
  try {
    work(report);
  } catch (const PrintError& error) {
    report.error = error;
  } catch (const std::system_error& error) {
    report.error = PrintError::trouble(error.code().message());
  }
  return report;
}

Report changeQueue(Action action, http_t* http, const std::string& queue) {
  return reportOn(queue, [&](Report& report) {
    QueueDriver driver(http, queue);
    report.state = coversStateOf(driver.ppd());
    const std::string ppd = changed(action, queue, driver.ppd());
    if (ppd == driver.ppd()) return;
    driver.replacePPD(ppd);
    report.changed = true;
    report.state = coversStateOf(ppd);
  });
}

std::string textOfPPD(const std::string& path) {
  TextFile file = readTextFile(path, kLargestPPD);
  if (file.isRead()) return std::move(file.text);
  const std::string fault =
      file.isMissing() ? translated("there is no such file") : std::move(file.fault);
  throw PrintError::trouble(translated("%s cannot be read: %s.", shown(path), fault));
}

// A device or a pipe ("/dev/stdout") cannot be replaced.
void writePPD(const std::string& path, const std::string& text) {
  namespace fs = std::filesystem;
  try {
    if (!fs::exists(path) || fs::is_regular_file(path)) {
      replaceFile(fs::is_symlink(path) ? fs::canonical(path).string() : path, text);
      return;
    }
    std::ofstream stream(path, std::ios::binary);
    if ((stream << text).flush()) return;
    throw std::system_error(errno, std::generic_category());
  } catch (const std::system_error& error) {
    throw PrintError::trouble(
        translated("%s cannot be written: %s.", shown(path), error.code().message()));
  }
}

Report changeFile(Action action, const PrinterOptions& options) {
  return reportOn(options.ppd, [&](Report& report) {
    const std::string before = textOfPPD(options.ppd);
    // That a file is no PPD says more than that it has no trays. Our lines go from any file.
    if (action != Action::Disable) static_cast<void>(PPDDocument::openText(before, options.ppd));
    report.state = coversStateOf(before);
    const std::string ppd = changed(action, options.ppd, before);
    if (action != Action::Status) writePPD(options.output, ppd);
    report.changed = ppd != before;
    report.state = coversStateOf(ppd);
  });
}

std::vector<std::string> queuesOf(const PrinterOptions& options, http_t* http) {
  if (options.all) return knownQueues(http);
  if (!options.queues.empty()) return options.queues;
  return {findDefaultQueue(http)->name};
}

ExitStatus run(Action action, const PrinterOptions& options) {
  std::vector<Report> reports;
  if (!options.ppd.empty()) {
    reports.push_back(changeFile(action, options));
  } else {
    const HttpHandle http = connectToServer();
    for (const std::string& queue : queuesOf(options, http.get()))
      reports.push_back(changeQueue(action, http.get(), queue));
  }
  return conclude(action, reports, options);
}

}  // namespace

void addPrinterCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<PrinterOptions>();
  CLI::App* printer =
      app.add_subcommand("printer", translated("Covers and inserts for print queues"));
  printer->require_subcommand(1);
  const auto add = [&](const char* name, const std::string& help, Action action) {
    CLI::App* command = printer->add_subcommand(name, help);
    CLI::Option* queues =
        command->add_option("-d,--printer", options->queues,
                            translated("Print queue (repeatable; default: the user's)"));
    queues->type_name("QUEUE")->expected(1)->take_all();
    CLI::Option* all =
        command->add_flag("--all", options->all, translated("All queues of the print server"));
    CLI::Option* ppd = command->add_option("--ppd", options->ppd,
                                           translated("PPD file to use instead of a queue"));
    ppd->type_name("FILE")->excludes(queues)->excludes(all);
    all->excludes(queues);
    if (action != Action::Status) {
      CLI::Option* output = command->add_option("--output", options->output,
                                                translated("Write the changed PPD to this file"));
      output->type_name("FILE")->needs(ppd);
      ppd->needs(output);
    }
    command->add_flag("--json", options->json, translated("Write the result as JSON"));
    command->callback([options, action, &status] { status = run(action, *options); });
  };
  add("enable", translated("Give them covers and inserts; needs the rights of lpadmin"),
      Action::Enable);
  add("disable", translated("Give them their driver back as it was; undoes enable"),
      Action::Disable);
  add("status", translated("Tell what they have, and what they can have"), Action::Status);
}

}  // namespace publishing
