// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Publishing/platform/Bundle.h"

namespace publishing {

// A shell's bundle as a host needs it: it tells of the user's gestures and explains controls.
class HostBundle : public Bundle {
 public:
  // `changed` is called after each gesture by which the user changed a control, when the panel has
  // dealt with it; never for a change from code. Applies to interfaces that are loaded from now on.
  virtual void setUserChanged(std::function<void()> changed) = 0;

  // What the control of the interface loaded last says when it is pointed at; empty for nothing.
  // `outlet` is the name of one of its controls.
  virtual void setTooltip(std::string_view outlet, const std::string& text) = 0;
};

}  // namespace publishing
