// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "pages", which checks a page list as the panel does. `status` receives the exit status when
// the command has run; it must live as long as the app.
void addPagesCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
