// SPDX-License-Identifier: Apache-2.0
// Gives all PPDs in folders covers and inserts, and takes them back; docs/corpus.md explains.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <CLI/CLI.hpp>

#include "tests/corpus/EnabledPPD.h"
#include "tests/corpus/Files.h"

namespace {

namespace fs = std::filesystem;

int check(const std::vector<fs::path>& packages, std::size_t every, const std::string& cupstestppd,
          const fs::path& report) {
  using namespace publishing::corpus;
  EnabledTally tally;
  std::size_t number = 0;
  for (const fs::path& package : packages) {
    for (const fs::path& file : filesBelow(package)) {
      if (number++ % every == 0)
        checkEnabledPPD(file, fs::relative(file, package.parent_path()).string(), cupstestppd,
                        tally);
    }
  }
  writeEnabledReport(std::cout, tally);
  if (!report.empty()) {
    std::ofstream file(report);
    writeEnabledReport(file, tally);
    if (!file.flush()) throw std::runtime_error("cannot write " + report.string());
  }
  return tally.wrong.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(int argc, char** argv) {
  CLI::App app("Enable and disable covers in PPDs", "covers-corpus");
  std::vector<fs::path> packages;
  std::string cupstestppd;
  std::size_t every = 1;
  fs::path report;
  app.add_option("FOLDER", packages, "Folders of PPDs, one for each package")
      ->required()
      ->check(CLI::ExistingDirectory);
  app.add_option("--cupstestppd", cupstestppd, "Compare the verdicts of this program, too");
  app.add_option("--every", every, "Take every Nth PPD only")->check(CLI::PositiveNumber);
  app.add_option("--report", report, "Write the report to this file as well");
  CLI11_PARSE(app, argc, argv);
  return check(packages, every, cupstestppd, report);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "covers-corpus: " << error.what() << '\n';
    return 2;
  }
}
