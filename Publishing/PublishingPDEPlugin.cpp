// SPDX-License-Identifier: Apache-2.0
#include "Publishing/PublishingPDEPlugin.h"

#include <utility>

#include "Publishing/Utilities.h"

namespace publishing {

bool PublishingPDEPlugin::initWithBundle(std::shared_ptr<Bundle> bundle) {
  pluginBundle = std::move(bundle);
  pdePanels.reset();
  try {
    if (pluginBundle != nullptr) pluginBundle->registerHelpBook();
  } catch (...) {
    // Help is not there then; the panel is.
  }
  return true;
}

std::shared_ptr<const PublishingPDEPlugin::Panels> PublishingPDEPlugin::PDEPanelsForType(
    const std::string& type, std::shared_ptr<PDEPluginCallback> hostInfo) {
  if (type == kPrinterModulePanelType) {
    pdePanels.reset();
    try {
      pdePanels = std::make_shared<const Panels>(
          Panels{std::make_shared<PublishingPDE>(std::move(hostInfo), pluginBundle)});
    } catch (...) {
      // No panel: the print dialog that asks is a stranger's and would end with what is thrown.
    }
    // Older hosts kept the array themselves, the factory none.
    if (!RunningOn105OrLater()) return std::exchange(pdePanels, nullptr);
  }
  return pdePanels;
}

}  // namespace publishing
