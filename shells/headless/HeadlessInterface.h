// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Publishing/platform/InterfaceOwner.h"
#include "shells/headless/HeadlessControls.h"

namespace publishing {

// The interface "Publishing" in memory: its views and controls by name. As loaded, every box is
// off, every control enabled, no radio cell selected, the page field and the pop-ups are empty, and
// the first of the three tabs is in front.
class HeadlessInterface {
 public:
  HeadlessInterface();

  // Connects the owner's outlets and actions by name. False, with nothing connected, when a name of
  // the description is unknown to the owner or names something else there.
  bool bind(InterfaceOwner& owner);

  // A control by its outlet's name; null when there is none of this name and kind.
  [[nodiscard]] HeadlessCheckBox* checkBox(std::string_view name);
  [[nodiscard]] HeadlessRadioMatrix* radioMatrix(std::string_view name);
  [[nodiscard]] HeadlessPopUpButton* popUpButton(std::string_view name);
  [[nodiscard]] HeadlessTextField* textField(std::string_view name);
  [[nodiscard]] HeadlessTabView& tabView() { return tabView_; }

  // Called after each gesture of the user on a control.
  void setUserChanged(const std::function<void(const std::string& outlet)>& changed);

  // Nothing happens when there is no control of this name.
  void setTooltip(std::string_view name, const std::string& text);

 private:
  template <class Function>
  void forEachControl(Function function);

  HeadlessView view_;
  HeadlessTabView tabView_;
  std::map<std::string, HeadlessCheckBox, std::less<>> checkBoxes_;
  std::map<std::string, HeadlessRadioMatrix, std::less<>> radioMatrices_;
  std::map<std::string, HeadlessPopUpButton, std::less<>> popUpButtons_;
  std::map<std::string, HeadlessTextField, std::less<>> textFields_;
};

}  // namespace publishing
