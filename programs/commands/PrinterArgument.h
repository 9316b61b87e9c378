// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "printing/Printer.h"

namespace publishing {

// The printer that a command works with, as its command line names it: -d QUEUE or --ppd FILE.
struct PrinterArgument {
  std::optional<std::string> queue;
  std::optional<std::string> ppd;

  // Opens the named queue, the PPD file, or the user's default queue when neither is named. Reports
  // what is wrong with the PPD on standard error. Throws PrintError.
  [[nodiscard]] Printer open() const;
};

// Adds both options, which exclude each other. `printer` must outlive the parsing.
void addPrinterArgument(CLI::App& command, PrinterArgument& printer);

}  // namespace publishing
