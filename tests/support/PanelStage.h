// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "shells/HostBundle.h"

namespace publishing {

// What a panel script needs of a shell: a bundle for the panel, and the gestures of a user on the
// interface that the bundle loaded. A gesture before the interface is loaded, or one that a real
// user could not make, does nothing. Names are outlet names of the right kind.
class PanelStage {
 public:
  virtual ~PanelStage() = default;

  // Alerts are to be passed to the stage's owner instead of waiting for a user.
  [[nodiscard]] virtual std::shared_ptr<HostBundle> bundle() = 0;

  virtual void click(const std::string& checkBox) = 0;
  virtual void clickRadioCell(std::int64_t column) = 0;
  virtual void choose(const std::string& popUp, std::int64_t index) = 0;

  // Replaces the page-number field's text keystroke by keystroke.
  virtual void type(const std::string& text) = 0;

  virtual void selectTab(std::int64_t index) = 0;
};

// Receives an alert's title, message and button.
using AlertSink = std::function<void(const std::string&, const std::string&, const std::string&)>;

}  // namespace publishing
