// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelWish.h"

#include <initializer_list>
#include <string_view>

#include "Publishing/NSStringMyExtension.h"

namespace publishing {
namespace {

struct Side {
  const char* checkBox;
  std::int64_t bit;
};

constexpr std::initializer_list<Side> kCoverSides = {{outlet::CmFrontOutside, kFrontOutside},
                                                     {outlet::CmFrontInside, kFrontInside},
                                                     {outlet::CmBackOutside, kBackOutside},
                                                     {outlet::CmBackInside, kBackInside}};
constexpr std::initializer_list<Side> kInsertSides = {{outlet::PiPrintOnFront, kPrintOnFront},
                                                      {outlet::PiPrintOnBack, kPrintOnBack}};

constexpr std::int64_t kBothCovers = 2;
constexpr std::int64_t kAllCoverSides = kFrontOutside | kFrontInside | kBackOutside | kBackInside;

// The sides that are ticked, and of those that cannot be ticked now the ones wanted before.
std::int64_t wantedSides(std::initializer_list<Side> sides, const PanelControls& controls,
                         std::int64_t before) {
  std::int64_t wanted = 0;
  for (const auto& [name, bit] : sides) {
    const CheckBox& box = controls.checkBox(name);
    if (box.isEnabled() ? box.state() == 1 : (before & bit) != 0) wanted |= bit;
  }
  return wanted;
}

}  // namespace

PanelWish::PanelWish(const JobTicket& ticket) {
  for (const PublishingFeature& feature : kFeatures) {
    if (ticket.getValue(feature.stateKey) != kStoredOn) continue;
    for (const char* key : feature.keys) {
      if (const auto value = ticket.getValue(key)) values_[key] = *value;
    }
  }
}

bool PanelWish::isOn(const PublishingFeature& feature) const {
  const auto state = values_.find(feature.stateKey);
  return state != values_.end() && state->second == kStoredOn;
}

std::int64_t PanelWish::number(const char* key) const {
  const auto value = values_.find(key);
  return value != values_.end() ? intValue(value->second) : 0;
}

bool PanelWish::note(PublishingPDE& panel, const PanelControls& controls) {
  panel.updateSettings();
  bool switchedOn = false;
  for (const PublishingFeature& feature : kFeatures) {
    const CheckBox& box = controls.checkBox(feature.checkBox);
    if (!box.isEnabled()) continue;  // switched off by the layout
    const bool was = isOn(feature);
    const bool is = box.state() == 1;
    switchTo(feature, is);
    switchedOn = switchedOn || (is && !was);
    if (!is || !was) continue;
    if (std::string_view(feature.option) == kCoverMode.option) {
      noteCovers(panel.state(), controls);
    } else {
      noteInserts(panel.state(), controls);
    }
  }
  return switchedOn;
}

// Another kind of cover begins without sides, as the panel has it.
void PanelWish::noteCovers(const PublishingSettings& state, const PanelControls& controls) {
  const std::int64_t kind = state.covermodeRadioButtonState;
  const bool sameKind = kind == number(kCovermodeRadioButtonState);
  std::int64_t sides = wantedSides(kCoverSides, controls, sameKind ? number(kCoverModeValue) : 0);
  if (sides == 0) sides = kind == kBothCovers ? kNoSideOfBothCovers : kNoSideOfFrontCover;
  values_[kCovermodeRadioButtonState] = std::to_string(kind);
  values_[kCoverModeValue] = std::to_string(sides);
  values_[kCmIndex] = std::to_string(state.cmIndex);
}

void PanelWish::noteInserts(const PublishingSettings& state, const PanelControls& controls) {
  const std::int64_t sides = wantedSides(kInsertSides, controls, number(kPageinsertValue));
  values_[kPageinsertValue] = std::to_string(sides);
  values_[kPiIndex] = std::to_string(state.piIndex);
  values_[kPageinsertNums] = state.pageNumValue.value_or("");
}

std::optional<std::int64_t> PanelWish::coverSides() const {
  if (!values_.contains(kCoverModeValue)) return std::nullopt;
  return number(kCoverModeValue) & kAllCoverSides;
}

void PanelWish::setMedium(const PublishingFeature& feature, std::size_t index) {
  values_[feature.indexKey] = std::to_string(index);
}

void PanelWish::switchTo(const PublishingFeature& feature, bool on) {
  values_[feature.stateKey] = on ? kStoredOn : kStoredOff;
}

void PanelWish::putInto(JobTicket& ticket) const {
  for (const PublishingFeature& feature : kFeatures) {
    for (const char* key : feature.keys) {
      const auto value = values_.find(key);
      ticket.setValue(key, value != values_.end() ? std::optional(value->second) : std::nullopt);
    }
  }
}

}  // namespace publishing
