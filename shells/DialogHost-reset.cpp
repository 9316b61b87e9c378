// SPDX-License-Identifier: Apache-2.0
// Reset and remembering in the panel's tab, and what the dialog says of the panel elsewhere.
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "shells/DialogHost.h"

namespace publishing {

bool DialogHost::canUndoReset() const {
  return panel_ != nullptr && forgotten_.contains(panel_->printerName());
}

std::string DialogHost::reset() {
  if (panel_ == nullptr || !panel_->isOpen()) return {};
  try {
    forgotten_.insert_or_assign(panel_->printerName(), panel_->reset());
  } catch (const PrintError& error) {
    return error.what();
  }
  dialog_.showNotices({});
  panelChanged();
  return {};
}

std::string DialogHost::undoReset() {
  if (!canUndoReset() || !panel_->isOpen()) return {};
  try {
    panel_->bringBack(forgotten_.at(panel_->printerName()));
  } catch (const PrintError& error) {
    return error.what();
  }
  forgotten_.erase(panel_->printerName());
  panelChanged();
  return {};
}

DialogHost::Remembering DialogHost::remembering() const {
  if (panel_ == nullptr) return {};
  return {panel_->remembers(), dialog_.rules().againstRemembering()};
}

void DialogHost::setRemembering(bool on) {
  if (panel_ != nullptr && dialog_.rules().remember) panel_->setRemembers(on);
}

std::string DialogHost::whatIsOn() const {
  if (panel_ == nullptr) return {};
  const bool covers = panel_->hasOn(kCoverMode);
  const bool inserts = panel_->hasOn(kPageInsert);
  if (covers && inserts) {
    return translated("Covers and inserted sheets are on: see the “%s” tab.", panel_->name());
  }
  if (covers) return translated("Covers are on: see the “%s” tab.", panel_->name());
  if (inserts) return translated("Inserted sheets are on: see the “%s” tab.", panel_->name());
  return {};
}

}  // namespace publishing
