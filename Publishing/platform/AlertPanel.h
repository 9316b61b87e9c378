// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// Tells the user something that must be read before going on.
class AlertPanel {
 public:
  virtual ~AlertPanel() = default;

  // Shows a modal alert with one button and returns when it is dismissed. The texts are plain
  // UTF-8, already localized, and are shown as they stand.
  virtual void runAlertPanel(const std::string& title, const std::string& message,
                             const std::string& defaultButton) = 0;
};

}  // namespace publishing
