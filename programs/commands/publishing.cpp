// SPDX-License-Identifier: Apache-2.0
// The command line of the Publishing panel.
#include <clocale>
#include <exception>

#include <glib.h>

#include "base/Translation.h"
#include "programs/commands/CommandLine.h"
#include "programs/terminal/Terminal.h"

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  g_set_prgname("publishing");
  publishing::bindTranslations();
  try {
    return publishing::runCommandLine(argc, argv);
  } catch (const std::exception& error) {
    publishing::warn(error.what());
    return publishing::kTrouble;
  }
}
