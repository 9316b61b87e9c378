// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrintCommand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Publishing/global.h"
#include "base/Translation.h"
#include "printing/Document.h"
#include "printing/JobTicket.h"
#include "printing/OfflineChain.h"
#include "printing/PrintError.h"
#include "printing/StoredSettings.h"
#include "printing/Submission.h"
#include "programs/commands/JobProgress.h"
#include "programs/commands/OptionAssignments.h"
#include "programs/commands/PrinterArgument.h"
#include "programs/terminal/Terminal.h"
#include "shells/PanelDump.h"
#include "shells/PanelSummary.h"
#include "shells/headless/PanelUser.h"

namespace publishing {
namespace {

struct PrintOptions {
  PrinterArgument printer;
  std::string output;
  std::optional<std::string> sides;
  std::optional<int> numberUp;
  bool reverse = false;
  std::optional<int> copies;
  std::optional<std::string> title;
  std::vector<std::string> jobOptions;
  PanelRequest panel;
  bool fresh = false;
  bool remember = false;
  bool ignoreConflicts = false;
  bool dryRun = false;
  bool wait = false;
  bool json = false;
  std::string document;
};

// Throws for combinations that CLI11 cannot express.
void checkUsage(const PrintOptions& options) {
  const auto fail = [](const std::string& message) { throw PrintError::usage(message); };
  const bool offline = !options.printer.ppd.empty();
  if (offline && options.output.empty() && !options.dryRun) {
    fail(translated("--ppd prints into a file: name it with --output FILE."));
  }
  if (!offline && !options.output.empty()) {
    fail(translated("--output works without a print server: name the PPD with --ppd FILE."));
  }
  if (offline && options.remember) {
    fail(translated("--remember stores settings for a print queue: name one with -d QUEUE."));
  }
  if (offline && options.wait) {
    fail(translated("--wait follows a job of a print queue: name one with -d QUEUE."));
  }
}

JobTicket ticketFor(Printer& printer, const PrintOptions& options) {
  JobTicket ticket = printer.newTicket();
  if (printer.isQueue() && !options.fresh) {
    const StoredSettings::Loaded stored = StoredSettings().load(printer.name());
    for (const std::string& warning : stored.warnings)
      warn(warning);
    for (const auto& [key, value] : stored.values)
      ticket.setValue(key, value);
  }
  if (options.sides) ticket.setSides(*sidesFromKeyword(*options.sides));
  if (options.numberUp) ticket.setNumberUp(*options.numberUp);
  if (options.reverse) ticket.setReverse(true);
  if (options.copies) ticket.setCopies(*options.copies);
  assignOptions(printer, ticket, options.jobOptions);
  return ticket;
}

std::vector<std::string> conflictsOf(Printer& printer, const JobTicket& ticket) {
  printer.mark(ticket);
  std::vector<std::string> texts;
  if (printer.ppd() == nullptr) return texts;
  for (const Conflict& conflict : printer.ppd()->conflicts())
    texts.push_back(conflict.text());
  return texts;
}

void refuseConflicts(const std::vector<std::string>& conflicts) {
  std::string message = translated("The printer cannot combine these choices:");
  for (const std::string& conflict : conflicts)
    message += "\n  " + conflict;
  message += '\n';
  message += translated("Change one of them, or print anyway with --ignore-conflicts.");
  throw PrintError::refused(message);
}

// Programs read this: in English whatever the user's language is.
nlohmann::json englishSummaryOf(const PublishingSettings& state) {
  const auto status = [](std::int64_t enableState) { return enableState == 1 ? kOn : kOff; };
  return {{kCovermodeStatus, status(state.covermodeEnableState)},
          {kPageinsertStatus, status(state.pageinsertEnableState)}};
}

// What --json writes: the panel as panel scripts dump it, and the job made of it.
nlohmann::json reportOf(PublishingPDE& panel, const Printer& printer, const JobTicket& ticket,
                        const std::vector<std::string>& conflicts) {
  return {{"printer", printer.name()},
          {"summary", englishSummaryOf(panel.state())},
          {"controls", dumpControls(panel)},
          {"fields", dumpFields(panel.state())},
          {"settings", *ticket.copyAsDictionary()},
          {"options", printer.jobOptions(ticket)},
          {"conflicts", conflicts},
          {"job", nullptr}};
}

// Sends the job, follows it when that is wanted, and completes the report. What is to be remembered
// is stored first: when that fails, nothing has been printed yet.
ExitStatus sendJob(const PrintOptions& options, const Printer& printer, const JobTicket& ticket,
                   Document& document, const std::string& title, nlohmann::json& report) {
  if (options.remember) StoredSettings().store(printer.name(), *ticket.copyAsDictionary());
  const int job = submit(printer, ticket, document, title);
  report["job"] = job;
  if (!options.json) {
    say(translated("Job %d was sent to %s.", job, printer.name()));
  }
  if (!options.wait) return kDone;
  const JobStatus last = followWithProgress(job);
  report["state"] = last.isCompleted() ? "completed" : "failed";
  if (last.isCompleted()) return kDone;
  warn(last.text());
  return kRefused;
}

ExitStatus runPrint(const PrintOptions& options) {
  checkUsage(options);
  Document document(options.document);
  const std::string title = options.title.value_or(document.defaultTitle());
  checkJobTitle(title);

  Printer printer = options.printer.open();
  JobTicket ticket = ticketFor(printer, options);
  PanelUser user(printer, ticket);
  user.apply(options.panel);
  user.save();

  const std::vector<std::string> conflicts = conflictsOf(printer, ticket);
  if (!conflicts.empty() && !options.ignoreConflicts) refuseConflicts(conflicts);
  nlohmann::json report = reportOf(user.panel(), printer, ticket, conflicts);

  if (!options.json) say(summaryOf(user.panel().state(), ", "));
  ExitStatus status = kDone;
  if (options.dryRun) {
    if (!options.json) say(translated("Nothing was printed: this was a dry run."));
  } else if (printer.isQueue()) {
    status = sendJob(options, printer, ticket, document, title, report);
  } else {
    printToFile(printer, ticket, document, title, options.output);
  }
  if (options.json) say(jsonLine(report));
  return status;
}

void addJobOptions(CLI::App& command, PrintOptions& options) {
  command.add_option("--sides", options.sides, translated("Sides of the sheets to print on"))
      ->check(CLI::IsMember({"one-sided", "two-sided-long-edge", "two-sided-short-edge"}))
      ->type_name("SIDES");
  command
      .add_option("--number-up", options.numberUp,
                  translated("Pages on one side: 1, 2, 4, 6, 9 or 16"))
      ->type_name("N");
  command.add_flag("--reverse", options.reverse, translated("Print the last page first"));
  command.add_option("-n,--copies", options.copies, translated("Number of copies"))->type_name("N");
  command.add_option("-t,--title", options.title, translated("The job's title"));
  command
      .add_option("--option", options.jobOptions,
                  translated("A printer or job option, for example MediaType=Coated (repeatable)"))
      ->type_name("NAME=VALUE")
      ->expected(1)
      ->take_all();
}

void addPanelOptions(CLI::App& command, PanelRequest& panel) {
  command.add_option("--cover", panel.cover, translated("The covers: none, front or front-back"))
      ->check(CLI::IsMember({"none", "front", "front-back"}))
      ->type_name("COVER");
  command
      .add_option("--cover-media", panel.coverMedia,
                  translated("The covers' medium, by keyword or text (see: publishing media)"))
      ->type_name("CHOICE");
  command
      .add_option("--cover-sides", panel.coverSides,
                  translated("Cover sides to print: front-outside, front-inside, back-outside, "
                             "back-inside, or none"))
      ->delimiter(',')
      ->type_name("SIDE,...");
  command
      .add_option("--insert", panel.insert,
                  translated("Pages before which a sheet is inserted, as in 5,8,12-14, or none"))
      ->type_name("LIST");
  command
      .add_option("--insert-media", panel.insertMedia,
                  translated("The inserts' medium, by keyword or text"))
      ->type_name("CHOICE");
  command
      .add_option("--insert-sides", panel.insertSides,
                  translated("Sides of the inserts to print: front, back, or none"))
      ->delimiter(',')
      ->type_name("SIDE,...");
}

}  // namespace

void addPrintCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<PrintOptions>();
  CLI::App* command =
      app.add_subcommand("print", translated("Print a document with covers and inserts"));
  addPrinterArgument(*command, options->printer);
  command
      ->add_option("-o,--output", options->output,
                   translated("With --ppd: the file to print into, without a print server"))
      ->type_name("FILE");
  addJobOptions(*command, *options);
  addPanelOptions(*command, options->panel);
  command->add_flag("--fresh", options->fresh,
                    translated("Start without the settings remembered for the queue"));
  command->add_flag("--remember", options->remember,
                    translated("Remember the covers and inserts for the queue"));
  command->add_flag("--ignore-conflicts", options->ignoreConflicts,
                    translated("Print even if choices conflict"));
  CLI::Option* dryRun = command->add_flag("--dry-run", options->dryRun,
                                          translated("Check everything, print and store nothing"));
  command
      ->add_flag("--wait", options->wait,
                 translated("Follow the job until it is done or has failed"))
      ->excludes(dryRun);
  command->add_flag("--json", options->json, translated("Write the result as JSON"));
  command->add_option("FILE", options->document, translated("PDF or PostScript document"))
      ->required();
  command->callback([options, &status] { status = runPrint(*options); });
}

}  // namespace publishing
