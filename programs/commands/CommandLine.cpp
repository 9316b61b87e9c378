// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/CommandLine.h"

#include <algorithm>
#include <string_view>

#include <CLI/CLI.hpp>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/commands/DialogCommand.h"
#include "programs/commands/ExtensionCommand.h"
#include "programs/commands/Failure.h"
#include "programs/commands/MediaCommand.h"
#include "programs/commands/PagesCommand.h"
#include "programs/commands/PresetCommand.h"
#include "programs/commands/PrintCommand.h"
#include "programs/commands/PrinterCommand.h"
#include "programs/commands/SettingsCommand.h"
#include "programs/commands/SheetsCommand.h"
#include "programs/commands/UsageError.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

void translateHeadings(CLI::App& app) {
  const auto headings = std::make_shared<CLI::Formatter>();
  headings->label("Usage", translated("Usage"));
  headings->label("OPTIONS", translated("OPTIONS"));
  headings->label("SUBCOMMAND", translated("COMMAND"));
  headings->label("Positionals", translated("Arguments"));
  headings->label("REQUIRED", translated("(required)"));
  headings->label("Excludes", translated("Not with"));
  app.formatter(headings);
  // The names of groups are headings, too; the commands take them over.
  app.option_defaults()->group(translated("Options"));
  app.group(translated("Commands"));
}

// Also of a command line that cannot be parsed.
bool asksForJson(int count, const char* const* arguments) {
  const std::string_view end = "--";
  const auto* const last = std::find(arguments, arguments + count, end);
  return std::find(arguments, last, std::string_view("--json")) != last;
}

}  // namespace

ExitStatus runCommandLine(int count, const char* const* arguments) {
  CLI::App app(translated("Print with covers and inserted sheets"), "publishing");
  translateHeadings(app);
  app.set_help_flag("-h,--help", translated("Show this help"));
  app.set_version_flag("--version", "publishing " PUBLISHING_VERSION,
                       translated("Show the version"));
  app.require_subcommand(1);
  ExitStatus status = kDone;
  addPrintCommand(app, status);
  addSheetsCommand(app, status);
  addMediaCommand(app, status);
  addPagesCommand(app, status);
  addSettingsCommand(app, status);
  addPresetCommand(app, status);
  addPrinterCommand(app, status);
  addExtensionCommand(app, status);
  addDialogCommand(app);
  const bool json = asksForJson(count, arguments);
  try {
    app.parse(count, arguments);
  } catch (const CLI::Success& helpOrVersion) {
    app.exit(helpOrVersion);
  } catch (const CLI::ParseError& error) {
    return reportFailure(usageError(app, error), json);
  } catch (const PrintError& error) {
    return reportFailure(error, json);
  }
  return status;
}

}  // namespace publishing
