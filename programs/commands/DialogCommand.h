// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace publishing {

// Adds "dialog", which opens the print dialog for a document: the program publishing-dialog, which
// needs a display, takes the place of this one.
void addDialogCommand(CLI::App& app);

}  // namespace publishing
