// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/SheetsCommand.h"

#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "base/AtomicFile.h"
#include "base/Translation.h"
#include "printing/Document.h"
#include "printing/PageCount.h"
#include "printing/PrintError.h"
#include "printing/SheetSentence.h"
#include "programs/commands/Arguments.h"
#include "programs/commands/PreparedJob.h"
#include "programs/commands/PrintArguments.h"
#include "programs/commands/SheetsReport.h"
#include "programs/terminal/Terminal.h"
#include "sheets/SheetPictureSVG.h"

namespace publishing {
namespace {

struct SheetsArguments {
  PrintArguments print;
  std::optional<std::string> document;
  std::optional<int> pages;
  std::optional<std::string> picture;
};

void checkPages(int pages) {
  if (pages >= 1 && pages <= kMostPlannedPages) return;
  throw PrintError::usage(translated("%s takes numbers from %d to %d, not %d.", "--pages", 1,
                                     kMostPlannedPages, pages));
}

// What the picture and the sheets are about.
struct Subject {
  std::string title;
  int pages = 0;
};

Subject subjectOf(const SheetsArguments& arguments) {
  if (!arguments.document) {
    if (!arguments.pages) {
      throw PrintError::usage(
          translated("Name a document, or give the number of its pages with --pages."));
    }
    const int pages = *arguments.pages;
    return {translatedPlural("%d page", "%d pages", pages, pages), pages};
  }
  const Document document(*arguments.document);
  const auto pages = arguments.pages ? arguments.pages : pagesIn(document.path());
  if (!pages) {
    throw PrintError::trouble(
        translated("%s does not tell how many pages it has. Give their number with --pages.",
                   shown(document.name())));
  }
  return {document.defaultTitle(), *pages};
}

void writePicture(const JobSheets& job, const std::string& title, const std::string& path) {
  PictureOptions options;
  options.title = title;
  try {
    replaceFile(path, writePictureSVG(pictureOf(job, options), sentenceOf(job)));
  } catch (const std::system_error& error) {
    throw PrintError::trouble(
        translated("%s cannot be written: %s", shown(path), shown(error.code().message())));
  }
}

ExitStatus runSheets(SheetsArguments& arguments) {
  if (arguments.pages) checkPages(*arguments.pages);
  if (arguments.picture && arguments.picture->empty())
    throw PrintError::usage(translated("--picture needs the name of a file."));
  const Subject subject = subjectOf(arguments);
  const PreparedJob prepared(arguments.print);
  const JobSheets job = prepared.sheets(subject.pages);
  if (!job.plan) {
    throw PrintError::refused(
        translated("Sheets can be worked out for at most %d pages.", kMostPlannedPages));
  }
  if (arguments.picture) writePicture(job, subject.title, *arguments.picture);
  if (arguments.print.json) {
    sayJson(asJson(job));
    return kDone;
  }
  say(sentenceOf(job) + "\n\n" + tableOf(job));
  for (const std::string& warning : warningsOf(job))
    warn(warning);
  return kDone;
}

}  // namespace

void addSheetsCommand(CLI::App& app, ExitStatus& status) {
  auto arguments = std::make_shared<SheetsArguments>();
  CLI::App* command =
      app.add_subcommand("sheets", translated("Show what would come out, sheet by sheet"));
  addJobArguments(*command, arguments->print, "-P");
  addNumber(*command, "--pages", arguments->pages,
            translated("The number of the document's pages"));
  addText(*command, "--picture", arguments->picture, translated("Draw the sheets into an SVG file"))
      ->type_name("FILE");
  command->add_flag("--json", arguments->print.json, translated("Write the result as JSON"));
  addText(*command, "FILE", arguments->document,
          translated("PDF or PostScript document; - is standard input"))
      ->type_name("");
  arguments->print.dryRun = true;
  command->callback([arguments, &status] { status = runSheets(*arguments); });
}

}  // namespace publishing
