// SPDX-License-Identifier: Apache-2.0
#include "shells/headless/HeadlessInterface.h"

#include "shells/InterfaceBinder.h"

namespace publishing {
namespace {

// A control's name in the description and the action it sends, if any.
struct CheckBoxDescription {
  const char* name;
  const char* action;
};

constexpr CheckBoxDescription kCheckBoxes[] = {
    {"CmCheckBox", "changeCmEnableState"},
    {"CmFrontOutside", nullptr},
    {"CmFrontInside", nullptr},
    {"CmBackOutside", nullptr},
    {"CmBackInside", nullptr},
    {"TiCheckBox", "changeTiEnableState"},
    {"TiPrintOnBack", nullptr},
    {"PiCheckBox", "changePiEnableState"},
    {"PiPrintOnBack", nullptr},
    {"PiPrintOnFront", nullptr},
};
constexpr const char* kMatrix = "CmFrontandBackMatrix";
constexpr const char* kMatrixActions[] = {"radioButtonF", "radioButtonFnB"};
constexpr const char* kPopUps[] = {"CmMediaType", "TiMediaType", "PiMediaType"};
constexpr const char* kPageField = "PiPageNum";
constexpr const char* kTabs[] = {"Cover Mode", "Transparency Interleaving", "Page Insert"};
constexpr const char* kTabAction = "tabViewDidSelectTabViewItem";

template <class Controls>
auto* find(Controls& controls, std::string_view name) {
  const auto found = controls.find(name);
  return found != controls.end() ? &found->second : nullptr;
}

}  // namespace

HeadlessInterface::HeadlessInterface() {
  tabView_.setLabels({std::begin(kTabs), std::end(kTabs)});
  for (const auto& box : kCheckBoxes)
    checkBoxes_[box.name];
  radioMatrices_[kMatrix];
  for (const char* popUp : kPopUps)
    popUpButtons_[popUp];
  textFields_[kPageField];
}

bool HeadlessInterface::bind(InterfaceOwner& owner) {
  InterfaceBinder binder(owner);
  binder.addView("pdeView", view_);
  binder.addOutlet<TabView>("tabView", tabView_);
  for (auto& [name, box] : checkBoxes_)
    binder.addOutlet<CheckBox>(name, box);
  for (auto& [name, matrix] : radioMatrices_)
    binder.addOutlet<RadioMatrix>(name, matrix);
  for (auto& [name, popUp] : popUpButtons_)
    binder.addOutlet<PopUpButton>(name, popUp);
  for (auto& [name, field] : textFields_)
    binder.addOutlet<TextField>(name, field);

  for (const auto& box : kCheckBoxes) {
    if (box.action != nullptr) {
      checkBoxes_[box.name].setAction(binder.action<CheckBox&>(box.action));
    }
  }
  std::vector<HeadlessRadioMatrix::Action> cells;
  for (const char* action : kMatrixActions)
    cells.push_back(binder.action<RadioMatrix&>(action));
  radioMatrices_[kMatrix].setActions(std::move(cells));
  tabView_.setAction(binder.action<>(kTabAction));
  return binder.connect();
}

HeadlessCheckBox* HeadlessInterface::checkBox(std::string_view name) {
  return find(checkBoxes_, name);
}

HeadlessRadioMatrix* HeadlessInterface::radioMatrix(std::string_view name) {
  return find(radioMatrices_, name);
}

HeadlessPopUpButton* HeadlessInterface::popUpButton(std::string_view name) {
  return find(popUpButtons_, name);
}

HeadlessTextField* HeadlessInterface::textField(std::string_view name) {
  return find(textFields_, name);
}

}  // namespace publishing
