// SPDX-License-Identifier: Apache-2.0
// What the programs tell whoever called them.
#pragma once

#include <string>

namespace publishing {

// Writes the text as a line on standard output.
void say(const std::string& text);

// Writes "PROGRAM: TEXT" as a line on standard error. The program's name is GLib's (g_set_prgname),
// which main sets.
void warn(const std::string& text);

}  // namespace publishing
