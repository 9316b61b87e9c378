// SPDX-License-Identifier: Apache-2.0
#include "shells/headless/HeadlessBundle.h"

#include "base/Translation.h"

namespace publishing {

std::string HeadlessBundle::localizedString(const std::string& key) const {
  return translated(key.c_str());
}

bool HeadlessBundle::loadInterface(const std::string& name, InterfaceOwner& owner) {
  if (name != "Publishing") return false;
  auto loaded = std::make_unique<HeadlessInterface>();
  if (!loaded->bind(owner)) return false;
  loaded->setUserChanged(changed_);
  interfaces_.push_back(std::move(loaded));
  owner.awakeFromNib();
  return true;
}

HeadlessInterface* HeadlessBundle::interface() const {
  return interfaces_.empty() ? nullptr : interfaces_.back().get();
}

void HeadlessBundle::setTooltip(std::string_view outlet, const std::string& text) {
  if (interface() != nullptr) interface()->setTooltip(outlet, text);
}

void HeadlessBundle::setNote(std::string_view outlet, const FieldNote& note) {
  HeadlessTextField* field = interface() != nullptr ? interface()->textField(outlet) : nullptr;
  if (field != nullptr) field->setNote(note);
}

void HeadlessBundle::separateItem(std::string_view outlet, std::int64_t index) {
  HeadlessPopUpButton* menu = interface() != nullptr ? interface()->popUpButton(outlet) : nullptr;
  if (menu != nullptr) menu->separateItem(index);
}

void HeadlessBundle::revealText(std::string_view outlet, std::size_t first, std::size_t length) {
  HeadlessTextField* field = interface() != nullptr ? interface()->textField(outlet) : nullptr;
  if (field != nullptr) field->select(first, length);
}

void HeadlessBundle::runAlertPanel(const std::string& title, const std::string& message,
                                   const std::string& defaultButton) {
  alert_(title, alertDetail_.empty() ? message : message + "\n\n" + alertDetail_, defaultButton);
}

}  // namespace publishing
