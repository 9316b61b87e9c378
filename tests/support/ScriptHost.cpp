// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ScriptHost.h"

namespace publishing {

bool ScriptHost::openPPD(const std::string& path) {
  std::unique_ptr<ppd_file_t, Close> opened(ppdOpenFile(path.c_str()));
  if (opened == nullptr) return false;
  ppdMarkDefaults(opened.get());
  ppd_ = std::move(opened);
  return true;
}

void ScriptHost::mark(const std::string& option, const std::string& choice) {
  ppdMarkOption(ppd_.get(), option.c_str(), choice.c_str());
}

}  // namespace publishing
