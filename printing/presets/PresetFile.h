// SPDX-License-Identifier: Apache-2.0
// A preset as a file, the same wherever it lies and when it is exported; docs/presets.md has the
// format. Such files come from other people: nothing in them is trusted.
#pragma once

#include <string>
#include <vector>

#include "printing/presets/Preset.h"

namespace publishing {

struct ReadPreset {
  Preset preset;
  std::vector<std::string> warnings;  // for the user: entries that are unknown and were ignored
};

// Throws PrintError (Trouble) with the first fault: half a preset would print something else.
ReadPreset parsePreset(const std::string& text);

// The same for a file; messages name it. A file that is missing is a fault, too.
ReadPreset readPresetFile(const std::string& path);

// What parsePreset takes back unchanged. Throws PrintError (Refused) for what it would not.
std::string textOf(const Preset& preset);

}  // namespace publishing
