// SPDX-License-Identifier: Apache-2.0
// The command line of the Publishing panel.
#include <clocale>
#include <exception>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/commands/CommandLine.h"
#include "programs/terminal/Interruption.h"
#include "programs/terminal/Terminal.h"

int main(int argc, char** argv) {
  using namespace publishing;
  keepStandardStreams();
  std::setlocale(LC_ALL, "");
  g_set_prgname("publishing");
  bindTranslations();
  try {
    const ExitStatus status = runCommandLine(argc, argv);
    finishOutput();
    Interruption::obey();
    return status;
  } catch (const std::exception& error) {
    warn(error.what());
    return kTrouble;
  }
}
