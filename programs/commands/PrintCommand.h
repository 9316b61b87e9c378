// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "print", which prints a document with covers and inserts through the panel. `status`
// receives the exit status when the command has run; it must live as long as the app.
void addPrintCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
