// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Publishing/platform/InterfaceOwner.h"

namespace publishing {

// A panel's controls by the names of its outlets, whichever toolkit they belong to. Those of a
// panel without a view are stand-ins that do nothing.
class PanelControls {
 public:
  // `panel` must outlive this object.
  explicit PanelControls(InterfaceOwner& panel)
      : outlets_(panel.outlets()), actions_(panel.actions()) {}

  // Throw std::out_of_range when the panel has no outlet of this name and kind.
  [[nodiscard]] CheckBox& checkBox(std::string_view name) const { return find<CheckBox>(name); }
  [[nodiscard]] RadioMatrix& radioMatrix(std::string_view name) const {
    return find<RadioMatrix>(name);
  }
  [[nodiscard]] PopUpButton& popUp(std::string_view name) const { return find<PopUpButton>(name); }
  [[nodiscard]] TextField& textField(std::string_view name) const { return find<TextField>(name); }

  // Does what a click that leaves the box on or off does; throws std::out_of_range when the panel
  // has no such action of check boxes.
  void switchTo(CheckBox& box, bool on, std::string_view action) const {
    box.setState(on ? 1 : 0);
    for (const ActionBinding& binding : actions_) {
      const auto* send = std::get_if<std::function<void(CheckBox&)>>(&binding.action);
      if (binding.name == action && send != nullptr) return (*send)(box);
    }
    throw std::out_of_range(std::string(action));
  }

 private:
  template <class ControlType>
  [[nodiscard]] ControlType& find(std::string_view name) const {
    for (const OutletBinding& binding : outlets_) {
      const auto* outlet = std::get_if<Outlet<ControlType>*>(&binding.outlet);
      if (binding.name == name && outlet != nullptr) return ***outlet;
    }
    throw std::out_of_range(std::string(name));
  }

  std::vector<OutletBinding> outlets_;
  std::vector<ActionBinding> actions_;
};

}  // namespace publishing
