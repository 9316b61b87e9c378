// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "printing/PrintError.h"

namespace publishing {

// What is wrong with a command line that `app` could not parse, in the user's language: with a
// guess at what was meant, and where help is.
PrintError usageError(const CLI::App& app, const CLI::ParseError& error);

}  // namespace publishing
