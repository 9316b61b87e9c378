// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "printer enable", "disable" and "status": covers and inserts for print queues and PPD files.
// `status` receives the exit status when the command has run; it must live as long as the app.
void addPrinterCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
