// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "extension enable", "disable" and "status": the panel in the print dialogs of all programs.
// `status` receives the exit status when the command has run; it must live as long as the app.
void addExtensionCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
