// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds the command "sheets", which shows what a job would put on which sheet, without printing.
// `status` receives its exit status and must outlive the parsing.
void addSheetsCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
