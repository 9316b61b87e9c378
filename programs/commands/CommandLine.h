// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "programs/terminal/ExitStatus.h"

namespace publishing {

// Runs the command that the arguments name, as the program publishing does: results on standard
// output, messages on standard error. `arguments` begins with the program's name. Throws nothing
// that a command line, a file or a print server can cause.
ExitStatus runCommandLine(int count, const char* const* arguments);

}  // namespace publishing
