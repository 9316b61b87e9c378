// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Adds "media", which lists the media for covers and inserts, and why one is not available.
// `status` receives the exit status when the command has run; it must live as long as the app.
void addMediaCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
