// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "tests/support/PanelScript.h"

namespace publishing {

// The panel scripts in tests/data/scripts, each with what it must write: NAME.txt and NAME.golden.
// The target update-golden writes the golden files anew from the headless shell; look at each
// difference before it is committed. Scripts name files relative to the project's folder.

// The scripts' names in alphabetical order.
std::vector<std::string> goldenScriptNames();

// What the script writes on that shell. Changes to the project's folder first. Throws
// std::runtime_error when the script is faulty.
std::string runGoldenScript(const std::string& name, const PanelScript::StageFactory& makeStage);

// What it must write; empty when its golden file is missing.
std::string goldenOutput(const std::string& name);

}  // namespace publishing
