#include "programs/CommandLine.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "printing/PrintError.h"
#include "printing/Translation.h"
#include "programs/DialogCommand.h"
#include "programs/ExtensionCommand.h"
#include "programs/MediaCommand.h"
#include "programs/PagesCommand.h"
#include "programs/PrintCommand.h"
#include "programs/SettingsCommand.h"

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
  addExtensionCommand(app, status);
  addDialogCommand(app);
  try {
    app.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const PrintError& error) {
    std::cerr << "publishing: " << error.what() << '\n';
    return static_cast<ExitStatus>(error.exitStatus());
  }
  return status;
}

}  // namespace publishing
