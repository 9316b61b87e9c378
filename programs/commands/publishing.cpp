// The command line of the Publishing panel.
#include <clocale>
#include <exception>
#include <iostream>

#include "base/Translation.h"
#include "programs/commands/CommandLine.h"

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  publishing::bindTranslations();
  try {
    return publishing::runCommandLine(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "publishing: " << error.what() << '\n';
    return publishing::kTrouble;
  }
}
