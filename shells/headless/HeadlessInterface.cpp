// SPDX-License-Identifier: Apache-2.0
#include "shells/headless/HeadlessInterface.h"

#include "Publishing/PublishingFeatures.h"
#include "shells/InterfaceBinder.h"

namespace publishing {
namespace {

// A control's name in the description and the action it sends, if any.
struct CheckBoxDescription {
  const char* name;
  const char* action;
};

constexpr CheckBoxDescription kCheckBoxes[] = {
    {outlet::CmCheckBox, action::changeCmEnableState},
    {outlet::CmFrontOutside, nullptr},
    {outlet::CmFrontInside, nullptr},
    {outlet::CmBackOutside, nullptr},
    {outlet::CmBackInside, nullptr},
    {outlet::TiCheckBox, action::changeTiEnableState},
    {outlet::TiPrintOnBack, nullptr},
    {outlet::PiCheckBox, action::changePiEnableState},
    {outlet::PiPrintOnBack, nullptr},
    {outlet::PiPrintOnFront, nullptr},
};
constexpr const char* kMatrixActions[] = {action::radioButtonF, action::radioButtonFnB};
constexpr const char* kPopUps[] = {outlet::CmMediaType, outlet::TiMediaType, outlet::PiMediaType};
constexpr const char* kTabs[] = {"Cover Mode", "Transparency Interleaving", "Page Insert"};

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
  radioMatrices_[outlet::CmFrontandBackMatrix];
  for (const char* popUp : kPopUps)
    popUpButtons_[popUp];
  textFields_[outlet::PiPageNum];
}

bool HeadlessInterface::bind(InterfaceOwner& owner) {
  InterfaceBinder binder(owner);
  binder.addView(outlet::pdeView, view_);
  binder.addOutlet<TabView>(outlet::tabView, tabView_);
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
  radioMatrices_[outlet::CmFrontandBackMatrix].setActions(std::move(cells));
  tabView_.setAction(binder.action<>(action::tabViewDidSelectTabViewItem));
  return binder.connect();
}

template <class Function>
void HeadlessInterface::forEachControl(Function function) {
  for (auto& [name, box] : checkBoxes_)
    function(name, box);
  for (auto& [name, matrix] : radioMatrices_)
    function(name, matrix);
  for (auto& [name, popUp] : popUpButtons_)
    function(name, popUp);
  for (auto& [name, field] : textFields_)
    function(name, field);
}

void HeadlessInterface::setUserChanged(
    const std::function<void(const std::string& outlet)>& changed) {
  forEachControl([&](const std::string& name, auto& control) {
    control.setUserChanged([changed, name] {
      if (changed) changed(name);
    });
  });
}

void HeadlessInterface::setTooltip(std::string_view name, const std::string& text) {
  forEachControl([&](const std::string& known, auto& control) {
    if (known == name) control.setTooltip(text);
  });
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
