// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/ControlsOwner.h"

#include <algorithm>

namespace publishing {
namespace {

constexpr const char* kBoxes[] = {
    "CmCheckBox", "CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside",
    "TiCheckBox", "TiPrintOnBack",  "PiCheckBox",    "PiPrintOnBack", "PiPrintOnFront"};
constexpr const char* kPopUps[] = {"CmMediaType", "TiMediaType", "PiMediaType"};
constexpr const char* kBoxActions[] = {"changeCmEnableState", "changeTiEnableState",
                                       "changePiEnableState"};
constexpr const char* kCellActions[] = {"radioButtonF", "radioButtonFnB"};

}  // namespace

ControlsOwner::ControlsOwner() {
  for (const char* name : kBoxes)
    checkBoxes[name];
  for (const char* name : kPopUps)
    popUps[name];
}

std::vector<OutletBinding> ControlsOwner::outlets() {
  std::vector<OutletBinding> bindings = {{"pdeView", &view},
                                         {"tabView", &tabView},
                                         {"CmFrontandBackMatrix", &matrix},
                                         {"PiPageNum", &pageField}};
  for (auto& [name, outlet] : checkBoxes)
    bindings.push_back({name, &outlet});
  for (auto& [name, outlet] : popUps)
    bindings.push_back({name, &outlet});

  std::erase_if(bindings, [this](const auto& binding) { return binding.name == forgotten_; });
  for (OutletBinding& binding : bindings) {
    if (binding.name != confused_) continue;
    if (std::holds_alternative<Outlet<TabView>*>(binding.outlet)) {
      binding.outlet = &otherDecoyOutlet_;
    } else {
      binding.outlet = &decoyOutlet_;
    }
  }
  return bindings;
}

std::vector<ActionBinding> ControlsOwner::actions() {
  std::vector<ActionBinding> bindings;
  for (const char* name : kBoxActions) {
    bindings.push_back({name, [this, name](CheckBox& sender) { sent.push_back({name, &sender}); }});
  }
  for (const char* name : kCellActions) {
    bindings.push_back({name, [this, name](RadioMatrix& sender) {
                          sent.push_back({name, &sender});
                        }});
  }
  bindings.push_back({"tabViewDidSelectTabViewItem", [this] {
                        sent.push_back({"tabViewDidSelectTabViewItem", nullptr});
                      }});

  std::erase_if(bindings, [this](const auto& binding) { return binding.name == forgotten_; });
  for (ActionBinding& binding : bindings) {
    if (binding.name != confused_) continue;
    if (std::holds_alternative<std::function<void()>>(binding.action)) {
      binding.action = [](CheckBox& /*sender*/) {};
    } else {
      binding.action = [] {};
    }
  }
  return bindings;
}

void ControlsOwner::awakeFromNib() {
  ++awakenings;
  wasConnectedOnAwakening = wasConnectedOnAwakening && isEverythingConnected();
}

bool ControlsOwner::isAnythingConnected() const {
  const auto connected = [](const auto& entry) { return entry.second.isConnected(); };
  return view != nullptr || tabView.isConnected() || matrix.isConnected() ||
         pageField.isConnected() || decoyOutlet_.isConnected() || otherDecoyOutlet_.isConnected() ||
         std::any_of(checkBoxes.begin(), checkBoxes.end(), connected) ||
         std::any_of(popUps.begin(), popUps.end(), connected);
}

bool ControlsOwner::isEverythingConnected() const {
  const auto connected = [](const auto& entry) { return entry.second.isConnected(); };
  return view != nullptr && tabView.isConnected() && matrix.isConnected() &&
         pageField.isConnected() && std::all_of(checkBoxes.begin(), checkBoxes.end(), connected) &&
         std::all_of(popUps.begin(), popUps.end(), connected);
}

}  // namespace publishing
