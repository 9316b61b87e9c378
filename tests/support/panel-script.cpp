// SPDX-License-Identifier: Apache-2.0
// Reads panel commands from standard input (or the files named) and writes what the panel does on
// the headless controls; tests/support/PanelScript.h lists the commands.
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>

#include "tests/support/HeadlessStage.h"
#include "tests/support/PanelScript.h"

int main(int argc, char** argv) {
  using namespace publishing;
  PanelScript script(
      [](AlertSink alerts) { return std::make_unique<HeadlessStage>(std::move(alerts)); },
      std::cout);
  try {
    if (argc == 1) script.run(std::cin);
    for (int index = 1; index < argc; ++index) {
      std::ifstream commands(argv[index]);
      if (!commands) throw std::runtime_error(std::string("cannot read ") + argv[index]);
      script.run(commands);
    }
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << "panel-script: " << error.what() << '\n';
    return 2;
  }
  return 0;
}
