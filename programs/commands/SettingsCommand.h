// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "settings show" and "settings clear", for what the panel remembers of a print queue.
// `status` receives the exit status when the command has run; it must live as long as the app.
void addSettingsCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
