// SPDX-License-Identifier: Apache-2.0
// Compares the panel's PPD model with libcups over folders of PPDs; docs/corpus.md explains.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <CLI/CLI.hpp>

#include "tests/corpus/Files.h"
#include "tests/corpus/LoadTimes.h"
#include "tests/corpus/PPDCheck.h"
#include "tests/corpus/Report.h"

namespace {

namespace fs = std::filesystem;

int check(const std::vector<fs::path>& packages, int rounds, const fs::path& report) {
  using namespace publishing::corpus;
  std::map<std::string, Tally> tallies;
  Tally all;
  for (const fs::path& package : packages) {
    Tally& tally = tallies[package.filename().string()];
    for (const fs::path& file : filesBelow(package))
      checkFile(file, fs::relative(file, package.parent_path()).string(), rounds, tally);
    all += tally;
  }
  writeReport(std::cout, tallies);
  if (!report.empty()) {
    std::ofstream file(report);
    writeReport(file, tallies);
    if (!file.flush()) throw std::runtime_error("cannot write " + report.string());
  }
  return all.passed() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int bench(const std::vector<fs::path>& packages) {
  using publishing::corpus::filesBelow;
  constexpr int kPasses = 5;
  publishing::corpus::LoadTimes times;
  for (int pass = 0; pass < kPasses; ++pass)
    for (const fs::path& package : packages)
      for (const fs::path& file : filesBelow(package))
        times.measure(file, fs::relative(file, package.parent_path()).string());
  times.write(std::cout);
  return times.goalsMet() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(int argc, char** argv) {
  CLI::App app("Compare the panel's PPD model with libcups", "ppd-corpus");
  std::vector<fs::path> packages;
  int rounds = 8;
  fs::path report;
  bool times = false;
  app.add_option("FOLDER", packages, "Folders of PPDs, one for each package")
      ->required()
      ->check(CLI::ExistingDirectory);
  app.add_option("--rounds", rounds, "States of the marks for each PPD, after its defaults")
      ->capture_default_str();
  app.add_option("--report", report, "Write the report to this file as well");
  app.add_flag("--bench", times,
               "Measure the model's load times instead; fails when a goal is missed");
  CLI11_PARSE(app, argc, argv);
  return times ? bench(packages) : check(packages, rounds, report);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "ppd-corpus: " << error.what() << '\n';
    return 2;
  }
}
