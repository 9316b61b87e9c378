// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GoldenScript.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

fs::path scripts() {
  return fs::path(PROJECT_FOLDER) / "tests/data/scripts";
}

}  // namespace

std::vector<std::string> goldenScriptNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(scripts())) {
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string runGoldenScript(const std::string& name, const PanelScript::StageFactory& makeStage) {
  fs::current_path(PROJECT_FOLDER);
  std::istringstream commands(contentsOfFile(scripts() / (name + ".txt")));
  std::ostringstream output;
  PanelScript(makeStage, output).run(commands);
  return output.str();
}

std::string goldenOutput(const std::string& name) {
  return contentsOfFile(scripts() / (name + ".golden"));
}

}  // namespace publishing
