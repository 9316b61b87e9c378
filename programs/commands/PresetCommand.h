// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// "publishing preset": the panel's choices under names of the user's. `status` gets what the
// program exits with and must outlive the parsing.
void addPresetCommand(CLI::App& app, ExitStatus& status);

}  // namespace publishing
