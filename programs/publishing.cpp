// The command line of the Publishing panel.
#include <clocale>
#include <exception>
#include <iostream>

#include <CLI/CLI.hpp>

#include "printing/PrintError.h"
#include "printing/Translation.h"
#include "programs/DialogCommand.h"
#include "programs/ExitStatus.h"
#include "programs/MediaCommand.h"
#include "programs/PagesCommand.h"
#include "programs/PrintCommand.h"
#include "programs/SettingsCommand.h"

int main(int argc, char** argv) {
  using namespace publishing;
  std::setlocale(LC_ALL, "");
  bindTranslations();
  CLI::App app(translated("Print with covers and inserted sheets on Zephrel printers"),
               "publishing");
  app.set_version_flag("--version", "publishing " PUBLISHING_VERSION);
  app.require_subcommand(1);
  ExitStatus status = kDone;
  addPrintCommand(app, status);
  addMediaCommand(app, status);
  addPagesCommand(app, status);
  addSettingsCommand(app, status);
  addDialogCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const PrintError& error) {
    std::cerr << "publishing: " << error.what() << '\n';
    return error.exitStatus();
  } catch (const std::exception& error) {
    std::cerr << "publishing: " << error.what() << '\n';
    return kTrouble;
  }
  return status;
}
