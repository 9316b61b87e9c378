// SPDX-License-Identifier: Apache-2.0
#include "Publishing/PublishingPDE.h"

#include <stdexcept>
#include <utility>

#include "Publishing/NSStringMyExtension.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/Utilities.h"
#include "Publishing/global.h"

namespace publishing {

PublishingPDE::PublishingPDE(std::shared_ptr<PDEPluginCallback> callback,
                             std::shared_ptr<Bundle> bundle)
    : pluginBundle_(std::move(bundle)), pdePluginCallbackObject(std::move(callback)) {
  if (pluginBundle_ == nullptr)
    throw std::invalid_argument("The panel needs the bundle that it was loaded from.");
  if (pdePluginCallbackObject == nullptr)
    throw std::invalid_argument("The panel needs the callback object of its host.");
}

std::string PublishingPDE::panelKind() {
  return "com.zephrel.pde.VTPublishing.PublishingKind";
}

const std::string& PublishingPDE::panelName() {
  if (!pdeName) pdeName = pluginBundle_->localizedString(kPublishingPanelNameKey);
  return *pdeName;
}

View* PublishingPDE::panelView() {
  // initializeUI asks for the view in turn: a description that gives none is not loaded for ever.
  if (pdeView != nullptr || loadingView) return pdeView;
  loadingView = true;
  try {
    pluginBundle_->loadInterface("Publishing", *this);
    initializeUI();
  } catch (...) {
    pdeView = nullptr;  // half loaded
    loadingView = false;
    throw;
  }
  loadingView = false;
  return pdeView;
}

bool PublishingPDE::shouldHide() {
  return true;
}

void PublishingPDE::willShow() {
  initializeUI();
  if (ppdInfo) ppdInfo->reloadMarkedChoices(ppdFile);
  updateConstraints();
  updateUI();
}

bool PublishingPDE::shouldShowHelp() {
  return pluginBundle_->gotoHelpPage("Publishing Help") != 0;
}

std::map<std::string, std::string> PublishingPDE::summaryInfo() const {
  // "On" stands as it is in every language; only "Off" is translated.
  const auto status = [this](std::int64_t enableState) {
    return enableState == 1 ? kOn : pluginBundle_->localizedString(kOff);
  };
  return {
      {pluginBundle_->localizedString(kCovermodeStatus), status(state_.covermodeEnableState)},
      {pluginBundle_->localizedString(kPageinsertStatus), status(state_.pageinsertEnableState)}};
}

const std::vector<std::string>& PublishingPDE::supportedPPDOptionKeys() {
  if (!supportedOptions) supportedOptions = {cCoverMediaType, cTransMediaType, cPageMediaType};
  return *supportedOptions;
}

ppd_file_t* PublishingPDE::getPPDOnTiger() {
  return nullptr;
}

std::int32_t PublishingPDE::changePPDSettingForOption(const std::string& /*option*/,
                                                      const std::string& /*choice*/) {
  return 0;
}

ppd_file_t* PublishingPDE::currentPPD() const {
  return RunningOn105OrLater() ? pdePluginCallbackObject->ppdFile() : getPPDOnTiger();
}

bool PublishingPDE::readPrintSetting(const char* key, std::optional<std::string>& value) const {
  auto stored = pdePluginCallbackObject->printSettings().getValue(key);
  if (!stored) return false;
  value = std::move(stored);
  return true;
}

bool PublishingPDE::readPrintSetting(const char* key, std::int64_t& value) const {
  std::optional<std::string> text;
  if (!readPrintSetting(key, text)) return false;
  value = intValue(*text);
  return true;
}

bool PublishingPDE::isPrintSettingOn(const char* key) const {
  return pdePluginCallbackObject->printSettings().getValue(key) == kStoredOn;
}

void PublishingPDE::writePrintSetting(const char* key, const std::optional<std::string>& value) {
  pdePluginCallbackObject->printSettings().setValue(key, value);
}

void PublishingPDE::writePrintSetting(const char* key, std::int64_t value) {
  writePrintSetting(key, std::to_string(value));
}

bool PublishingPDE::isTwoSided() const {
  constexpr std::int32_t kPMDuplexNone = 1;
  return pdePluginCallbackObject->printSettings().getDuplex().value_or(kPMDuplexNone) >
         kPMDuplexNone;
}

bool PublishingPDE::isNup() const {
  const auto settings = pdePluginCallbackObject->printSettings().copyAsDictionary();
  if (!settings) return false;
  const auto nup = settings->find(kNup);
  return nup != settings->end() && intValue(nup->second) == 1;
}

bool PublishingPDE::isReversed() const {
  return pdePluginCallbackObject->printSettings().getValue(kOutputOrder) == "Reverse";
}

}  // namespace publishing
