// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Publishing/platform/InterfaceOwner.h"
#include "shells/FieldNote.h"
#include "shells/InterfaceBinder.h"

namespace publishing {

// The controls of an interface description on a toolkit's widgets, by the names of their outlets:
// what is the same for each toolkit, whose classes of controls these are.
template <class CheckBoxType, class RadioMatrixType, class PopUpButtonType, class TextFieldType,
          class TabViewType, class FieldNoteType>
class WidgetControls {
 public:
  // A control by its outlet's name; null when there is none of this name and kind.
  [[nodiscard]] CheckBoxType* checkBox(std::string_view name) { return find(checkBoxes_, name); }
  [[nodiscard]] RadioMatrixType* radioMatrix(std::string_view name) {
    return find(radioMatrices_, name);
  }
  [[nodiscard]] PopUpButtonType* popUpButton(std::string_view name) {
    return find(popUpButtons_, name);
  }
  [[nodiscard]] TextFieldType* textField(std::string_view name) { return find(textFields_, name); }
  [[nodiscard]] TabViewType* tabView(std::string_view name) { return find(tabViews_, name); }

  // Called after each gesture by which the user changed a control.
  void setUserChanged(const std::function<void(const std::string& outlet)>& changed) {
    forEachControl([&](const std::string& name, auto& control) {
      control.setUserChanged([changed, name] {
        if (changed) changed(name);
      });
    });
  }

  // See HostBundle::setNote. The room for it is the label that is named after the field, with
  // "Hint" behind it.
  void setNote(std::string_view name, const FieldNote& note) {
    if (FieldNoteType* shown = find(notes_, name)) shown->show(note);
  }

  // See HostBundle::revealText.
  void revealText(std::string_view name, std::size_t first, std::size_t length) {
    TextFieldType* field = textField(name);
    if (field == nullptr) return;
    for (const auto& [tabsName, tabs] : tabViews_)
      tabs->bringToFront(field->widget());
    field->select(first, length);
  }

 protected:
  template <class ControlType>
  using ByName = std::map<std::string, std::unique_ptr<ControlType>, std::less<>>;

  // Calls it with the name and the control, for all but the tabs.
  template <class Function>
  void forEachControl(Function function) {
    const auto forEach = [&function](const auto& controls) {
      for (const auto& [name, control] : controls)
        function(name, *control);
    };
    forEach(checkBoxes_);
    forEach(radioMatrices_);
    forEach(popUpButtons_);
    forEach(textFields_);
  }

  void addOutlets(InterfaceBinder& binder) {
    addOutlets<TabView>(binder, tabViews_);
    addOutlets<CheckBox>(binder, checkBoxes_);
    addOutlets<RadioMatrix>(binder, radioMatrices_);
    addOutlets<PopUpButton>(binder, popUpButtons_);
    addOutlets<TextField>(binder, textFields_);
  }

  ByName<CheckBoxType> checkBoxes_;
  ByName<RadioMatrixType> radioMatrices_;
  ByName<PopUpButtonType> popUpButtons_;
  ByName<TextFieldType> textFields_;
  ByName<FieldNoteType> notes_;
  ByName<TabViewType> tabViews_;

 private:
  template <class ControlType>
  static ControlType* find(const ByName<ControlType>& controls, std::string_view name) {
    const auto found = controls.find(name);
    return found != controls.end() ? found->second.get() : nullptr;
  }

  template <class OutletType, class ControlType>
  static void addOutlets(InterfaceBinder& binder, const ByName<ControlType>& controls) {
    for (const auto& [name, control] : controls)
      binder.addOutlet<OutletType>(name, *control);
  }
};

}  // namespace publishing
