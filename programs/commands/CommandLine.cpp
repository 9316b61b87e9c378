// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/CommandLine.h"

#include <CLI/CLI.hpp>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/commands/DialogCommand.h"
#include "programs/commands/ExtensionCommand.h"
#include "programs/commands/MediaCommand.h"
#include "programs/commands/PagesCommand.h"
#include "programs/commands/PrintCommand.h"
#include "programs/commands/PrinterCommand.h"
#include "programs/commands/SettingsCommand.h"
#include "programs/terminal/Terminal.h"

namespace publishing {

ExitStatus runCommandLine(int count, const char* const* arguments) {
  CLI::App app(translated("Print with covers and inserted sheets on Zephrel printers"),
               "publishing");
  app.set_version_flag("--version", "publishing " PUBLISHING_VERSION);
  app.require_subcommand(1);
  ExitStatus status = kDone;
  addPrintCommand(app, status);
  addMediaCommand(app, status);
  addPagesCommand(app, status);
  addSettingsCommand(app, status);
  addPrinterCommand(app, status);
  addExtensionCommand(app, status);
  addDialogCommand(app);
  try {
    app.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const PrintError& error) {
    warn(error.what());
    return exitStatusOf(error.kind());
  }
  return status;
}

}  // namespace publishing
