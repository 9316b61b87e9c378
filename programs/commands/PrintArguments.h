// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "programs/commands/JobWishes.h"
#include "programs/commands/PrinterArgument.h"

namespace publishing {

// The command line of "print".
struct PrintArguments {
  PrinterArgument printer;
  std::optional<std::string> output;
  std::optional<std::string> title;
  JobWishes wishes;
  std::optional<std::string> preset;
  bool fresh = false;
  bool remember = false;
  bool ignoreConflicts = false;
  bool dryRun = false;
  std::optional<std::string> wait;  // empty or a number of seconds
  bool json = false;
  std::vector<std::string> documents;

  // Throws PrintError (Usage) for what goes together in no job.
  void check() const;

  // How long to wait; nothing when there is no limit.
  [[nodiscard]] std::optional<int> waitingSeconds() const;
};

// In both, `arguments` must outlive the parsing.

// What a job is asked for, and of which printer. `ranges` are the names of the option that takes
// page ranges.
void addJobArguments(CLI::App& command, PrintArguments& arguments, const std::string& ranges);

// The whole.
void addPrintArguments(CLI::App& command, PrintArguments& arguments);

// Parts of them: two-sided printing alone, and what the panel decides, --preset included.
void addSides(CLI::App& command, std::optional<Sides>& sides);
void addPanelOptions(CLI::App& command, PrintArguments& arguments);

}  // namespace publishing
