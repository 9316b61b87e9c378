// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrintCommand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "printing/Document.h"
#include "printing/OfflineChain.h"
#include "printing/OfflineSheets.h"
#include "printing/PageCount.h"
#include "printing/PrintError.h"
#include "printing/SheetSentence.h"
#include "printing/StoredSettings.h"
#include "printing/Submission.h"
#include "programs/commands/Failure.h"
#include "programs/commands/JobProgress.h"
#include "programs/commands/PreparedJob.h"
#include "programs/commands/PrintArguments.h"
#include "programs/commands/SheetsReport.h"
#include "programs/terminal/Interruption.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

using nlohmann::json;

std::vector<Document> opened(const std::vector<std::string>& paths) {
  std::vector<Document> documents;
  for (const std::string& path : paths)
    documents.emplace_back(path);
  return documents;
}

PrintError stillPrinting(const Printer& printer, const JobStatus& status, int seconds) {
  return PrintError::trouble(
      translated("After %d seconds the job is not done, and it goes on. %s. To cancel it: cancel "
                 "%s-%d",
                 seconds, status.text(), printer.name(), status.job));
}

PrintError failed(const Printer& printer, const JobStatus& status) {
  std::string message = status.text();
  if (status.state == IPP_JSTATE_STOPPED) {
    message += '\n' + translated("It stays on the print server. To remove it: cancel %s-%d",
                                 printer.name(), status.job);
  }
  return PrintError::refused(message);
}

// Follows the job and completes the report with what became of it.
void waitFor(int job, const PrintArguments& arguments, const Printer& printer, json& report) {
  JobStatus last;
  {
    JobProgress progress;
    last = progress.follow(job, arguments.waitingSeconds());
  }
  if (last.isFailed()) {
    report["state"] = "failed";
    throw failed(printer, last);
  }
  if (last.isOver()) {
    report["state"] = last.isCompleted() ? "completed" : "forgotten";
    return;
  }
  report["state"] = "unfinished";
  if (!Interruption::happened()) {
    throw stillPrinting(printer, last, arguments.waitingSeconds().value_or(0));
  }
  warn(translated("Job %d goes on. To cancel it: cancel %s-%d", job, printer.name(), job));
}

// What is to be remembered is stored first: when that fails, nothing has been printed yet.
void sendJob(const PrintArguments& arguments, const PreparedJob& prepared,
             std::vector<Document>& documents, const std::string& title, json& report) {
  const Printer& printer = prepared.printer();
  if (!printer.obstacles().waits.empty()) warn(printer.obstacles().waits);
  if (arguments.remember) prepared.remember();
  int job = 0;
  {
    JobProgress progress;
    job = submit(printer, prepared.ticket(), documents, title, progress.sending(title));
  }
  report["job"] = job;
  if (!arguments.json) say(translated("Job %d was sent to %s.", job, printer.name()));
  if (arguments.wait) waitFor(job, arguments, printer, report);
}

void printPrepared(const PrintArguments& arguments, const PreparedJob& prepared,
                   std::vector<Document>& documents, const std::string& title, json& report) {
  if (arguments.dryRun) {
    if (!arguments.json) say(translated("Nothing was printed: this was a dry run."));
  } else if (prepared.printer().isQueue()) {
    sendJob(arguments, prepared, documents, title, report);
  } else {
    printToFile(prepared.printer(), prepared.ticket(), documents.front(), title, *arguments.output,
                [] { return !Interruption::happened(); });
  }
}

// Says what each document comes out as; before a dry run ends, sheet by sheet.
void tellSheets(const PrintArguments& arguments, const PreparedJob& prepared,
                const std::vector<Document>& documents) {
  for (const Document& document : documents) {
    const JobSheets job = prepared.sheets(pagesIn(document.path()));
    for (const std::string& warning : warningsOf(job))
      warn(warning);
    if (arguments.json) continue;
    const std::string sentence = sentenceOf(job);
    if (documents.size() == 1) {
      say(sentence);
    } else {
      // TRANSLATORS: The name of a document and what becomes of it.
      say(translated("%1$s: %2$s", document.defaultTitle(), sentence));
    }
    if (arguments.dryRun && job.plan) say('\n' + tableOf(job) + '\n');
  }
}

ExitStatus runPrint(PrintArguments& arguments) {
  arguments.check();
  std::vector<Document> documents = opened(arguments.documents);
  const std::string title = arguments.title.value_or(documents.front().defaultTitle());
  checkJobTitle(title);
  const PreparedJob prepared(arguments);
  json report = prepared.report();
  tellSheets(arguments, prepared, documents);
  const std::string note =
      noteOnSheets(prepared.printer(), prepared.printer().jobOptions(prepared.ticket()));
  if (!note.empty()) warn(note);

  const Interruption interruption;
  ExitStatus status = kDone;
  try {
    printPrepared(arguments, prepared, documents, title, report);
  } catch (const PrintError& error) {
    warn(error.what());
    status = exitStatusOf(error.kind());
    // Without a job there is no more to tell than the failure.
    if (report["job"].is_null()) report = json::object();
    report["error"] = failureAsJson(error);
  }
  if (arguments.json) sayJson(report);
  return status;
}

}  // namespace

void addPrintCommand(CLI::App& app, ExitStatus& status) {
  auto arguments = std::make_shared<PrintArguments>();
  CLI::App* command =
      app.add_subcommand("print", translated("Print documents with covers and inserts"));
  addPrintArguments(*command, *arguments);
  command->callback([arguments, &status] { status = runPrint(*arguments); });
}

}  // namespace publishing
