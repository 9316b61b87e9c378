// SPDX-License-Identifier: Apache-2.0
// Everything off and nothing remembered, and back again.
#include "printing/Remembering.h"
#include "shells/HostedPanel.h"

namespace publishing {

HostedPanel::Forgotten HostedPanel::reset() {
  const StoredSettings settings;
  Forgotten before = {wish_, settings.load(printer_->name()).values};
  if (!isSwitchedOff(before.stored)) (void)settings.clear(printer_->name());
  want(PanelWish());
  return before;
}

void HostedPanel::bringBack(const Forgotten& before) {
  if (!before.stored.empty()) StoredSettings().store(printer_->name(), before.stored);
  want(before.wish);
}

void HostedPanel::want(const PanelWish& wish) {
  wish_ = wish;
  takeDefaultMedia();
  losses_.clear();
  keepsInserts_ = false;
  showWish();
}

bool HostedPanel::hasOn(const PublishingFeature& feature) const {
  return isOpen_ && isShownOn(feature);
}

}  // namespace publishing
