#include "Publishing/PublishingPDEPlugin.h"

#include <utility>

#include "Publishing/Utilities.h"

namespace publishing {

bool PublishingPDEPlugin::initWithBundle(std::shared_ptr<Bundle> bundle) {
  pluginBundle = std::move(bundle);
  pdePanels.reset();
  pluginBundle->registerHelpBook();
  return true;
}

std::shared_ptr<const PublishingPDEPlugin::Panels> PublishingPDEPlugin::PDEPanelsForType(
    const std::string& type, std::shared_ptr<PDEPluginCallback> hostInfo) {
  if (type == kPrinterModulePanelType) {
    pdePanels = std::make_shared<const Panels>(
        Panels{std::make_shared<PublishingPDE>(std::move(hostInfo), pluginBundle)});
    // Older hosts kept the array themselves, the factory none.
    if (!RunningOn105OrLater()) return std::exchange(pdePanels, nullptr);
  }
  return pdePanels;
}

}  // namespace publishing
