// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "programs/qt-settings/QtSettings.h"
#include "programs/terminal/ExitStatus.h"

namespace publishing {

// The panel in the print dialogs of Qt programs, for "publishing extension". Does nothing and says
// nothing of its own where no Qt has the panel.
class QtExtension {
 public:
  // For all users or for one; `remedy` is said when rights are missing.
  QtExtension(bool system, const std::string& remedy);

  // Switch it on, once each Qt has shown that it can load it, or off. Throw PrintError (Trouble).
  ExitStatus enable();
  ExitStatus disable();

  // What was done, what is the case, as lines for the user; and what is wrong, on standard error.
  void tell() const;
  void tellState() const;
  void warnOfFaults() const;

  [[nodiscard]] nlohmann::json asJson() const;

 private:
  using Change = QtSettingsFile::Change;

  // The file that switches it on; empty for none.
  [[nodiscard]] std::string enabledBy() const;
  void test();

  QtPlaces places_;
  bool system_;
  QtSettingsFile file_;
  std::optional<Change> change_;
  std::vector<std::string> faults_;
};

}  // namespace publishing
