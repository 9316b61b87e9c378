// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Publishing/PublishingPDE.h"
#include "Publishing/platform/Bundle.h"
#include "Publishing/platform/PDEPluginCallback.h"

namespace publishing {

// The printing system's type of panels that come from a printer module.
inline constexpr const char* kPrinterModulePanelType = "BDB091F4-E57F-11D3-B5CC-0050E4603277";

// The factory that a print dialog asks for panels.
class PublishingPDEPlugin {
 public:
  using Panels = std::vector<std::shared_ptr<PublishingPDE>>;

  // Nothing is thrown by either of these.

  // Takes a share in the bundle and registers its help book. Always true, whether or not the help
  // book could be registered. Must come before any panel is asked for.
  bool initWithBundle(std::shared_ptr<Bundle> bundle);

  // For the printer-module panel type (compared exactly): a new array with one new panel, which
  // replaces the previous array. For any other type: the current array, null at first. `hostInfo`
  // is the host's callback object; the panel takes a share in it. Null when the panel cannot be
  // made: there is no bundle or no host, or memory is short.
  std::shared_ptr<const Panels> PDEPanelsForType(const std::string& type,
                                                 std::shared_ptr<PDEPluginCallback> hostInfo);

 private:
  std::shared_ptr<Bundle> pluginBundle;
  std::shared_ptr<const Panels> pdePanels;
};

}  // namespace publishing
