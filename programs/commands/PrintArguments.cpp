// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrintArguments.h"

#include <span>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/presets/Preset.h"
#include "programs/commands/Arguments.h"

namespace publishing {
namespace {

std::vector<std::string> wordsOf(std::span<const SideWord> sides) {
  std::vector<std::string> words;
  for (const SideWord& side : sides)
    words.emplace_back(side.word);
  return words;
}

void addJobOptions(CLI::App& command, JobWishes& wishes, const std::string& ranges) {
  addSides(command, wishes.sides);
  addNumber(command, "--number-up", wishes.numberUp,
            translated("Pages on one side: 1, 2, 4, 6, 9 or 16"));
  command.add_flag_callback(
      "--reverse", [&wishes] { wishes.reverse = true; }, translated("Print the last page first"));
  addNumber(command, "-n,--copies", wishes.copies, translated("Number of copies, collated"));
  addText(command, ranges, wishes.pages,
          translated("Print only these pages, as in 1-4,7. --insert counts the printed pages"))
      ->type_name("PAGES");
  command
      .add_option("-o,--option", wishes.options,
                  translated("A printer or job option, for example MediaType=Coated or fit-to-page "
                             "(repeatable)"))
      ->type_name("NAME=VALUE")
      ->expected(1)
      ->take_all();
}

void addConduct(CLI::App& command, PrintArguments& arguments) {
  command.add_flag("--remember", arguments.remember,
                   translated("Remember the covers and inserts for the queue"));
  CLI::Option* dryRun = command.add_flag("--dry-run", arguments.dryRun,
                                         translated("Check everything, print and store nothing"));
  const auto wait = [&arguments](const std::string& seconds) {
    // The parser's own word for a flag without a value.
    arguments.wait = seconds == "true" ? "" : seconds;
  };
  command
      .add_option_function<std::string>(
          "--wait", wait,
          translated("Follow the job until it is done or has failed, for SECONDS at most"))
      ->expected(0)
      ->type_name("[=SECONDS]")
      ->excludes(dryRun);
}

}  // namespace

void addSides(CLI::App& command, std::optional<Sides>& sides) {
  const auto take = [&sides](const std::string& keyword) {
    sides = sidesFromKeyword(keyword);
    if (sides) return;
    throw PrintError::usage(translated("%s does not take \"%s\". It takes: %s.", "--sides",
                                       shown(keyword),
                                       "one-sided, two-sided-long-edge, two-sided-short-edge"));
  };
  command
      .add_option_function<std::string>(
          "--sides", take,
          translated("Print one-sided, two-sided-long-edge or two-sided-short-edge"))
      ->type_name("SIDES");
}

void addPanelOptions(CLI::App& command, PrintArguments& arguments) {
  addText(
      command, "--preset", arguments.preset,
      translated("Start with this preset, in place of what is remembered (see: publishing preset "
                 "list)"))
      ->type_name("NAME");
  PanelRequest& panel = arguments.wishes.panel;
  addWord(command, "--cover", panel.cover, {"none", "front", "front-back"},
          translated("The covers: none, front or front-back"))
      ->type_name("COVER");
  addText(command, "--cover-media", panel.coverMedia,
          translated("The covers' medium, by keyword or text (see: publishing media)"))
      ->type_name("CHOICE");
  addWords(command, "--cover-sides", panel.coverSides, wordsOf(kCoverSideWords),
           translated("Cover sides to print: front-outside (if nothing is said), front-inside, "
                      "back-outside, back-inside, or none for blank covers"));
  addText(command, "--insert", panel.insert,
          translated("Pages before which a sheet is inserted, as in 5,8,12-14, or none"))
      ->type_name("LIST");
  addText(command, "--insert-media", panel.insertMedia,
          translated("The inserts' medium, by keyword or text"))
      ->type_name("CHOICE");
  addWords(command, "--insert-sides", panel.insertSides, wordsOf(kInsertSideWords),
           translated("Sides of the inserts to print: front, back, or none"));
}

void PrintArguments::check() const {
  const auto fail = [](const std::string& message) { throw PrintError::usage(message); };
  const bool offline = printer.ppd.has_value();
  if (offline && !output && !dryRun) {
    fail(translated("--ppd prints into a file: name it with --output FILE."));
  }
  if (!offline && output) {
    fail(translated("--output works without a print server: name the PPD with --ppd FILE."));
  }
  if (output && output->empty()) fail(translated("--output needs the name of a file."));
  if (output && documents.size() > 1) {
    fail(translated("--output takes one document at a time."));
  }
  if (offline && remember) {
    fail(translated("--remember stores settings for a print queue: name one with -d QUEUE."));
  }
  if (offline && wait) {
    fail(translated("--wait follows a job of a print queue: name one with -d QUEUE."));
  }
  if (wait && !wait->empty() && !wholeNumber(*wait)) {
    fail(translated("%s needs a whole number, not \"%s\".", "--wait", shown(*wait)));
  }
}

std::optional<int> PrintArguments::waitingSeconds() const {
  return wait ? wholeNumber(*wait) : std::nullopt;
}

void addJobArguments(CLI::App& command, PrintArguments& arguments, const std::string& ranges) {
  addPrinterArgument(command, arguments.printer);
  addJobOptions(command, arguments.wishes, ranges);
  addPanelOptions(command, arguments);
  command.add_flag("--fresh", arguments.fresh,
                   translated("Start without the settings remembered for the queue"));
  command.add_flag("--ignore-conflicts", arguments.ignoreConflicts,
                   translated("Print even if choices conflict"));
}

void addPrintArguments(CLI::App& command, PrintArguments& arguments) {
  addJobArguments(command, arguments, "-P,--pages");
  addText(command, "--output", arguments.output,
          translated("With --ppd: the file to print into, without a print server"))
      ->type_name("FILE");
  addText(command, "-t,--title", arguments.title, translated("The job's title"));
  addConduct(command, arguments);
  command.add_flag("--json", arguments.json, translated("Write the result as JSON"));
  command
      .add_option("FILE", arguments.documents,
                  translated("PDF or PostScript documents, one job; - is standard input"))
      ->type_name("")
      ->required();
}

}  // namespace publishing
