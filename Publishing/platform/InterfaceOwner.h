// SPDX-License-Identifier: Apache-2.0
// How an interface description is bound to the object that owns it: the owner lists its outlets and
// actions by name, and whatever loads the description connects them. Every shell binds the same
// way.
#pragma once

#include <functional>
#include <string_view>
#include <variant>
#include <vector>

#include "Publishing/platform/Controls.h"
#include "Publishing/platform/Outlet.h"

namespace publishing {

// Where the loader stores a control of the description. The views and controls stay the
// description's.
struct OutletBinding {
  std::string_view name;
  std::variant<View**, Outlet<TabView>*, Outlet<CheckBox>*, Outlet<RadioMatrix>*,
               Outlet<PopUpButton>*, Outlet<TextField>*>
      outlet;
};

// What the description's controls call when the user acts. The signature tells the sender: a check
// box sends itself, a radio cell its matrix, the tab view nothing.
struct ActionBinding {
  std::string_view name;
  std::variant<std::function<void(CheckBox& sender)>, std::function<void(RadioMatrix& sender)>,
               std::function<void()>>
      action;
};

class InterfaceOwner {
 public:
  virtual ~InterfaceOwner() = default;

  // The bindings stay valid as long as the owner lives.
  [[nodiscard]] virtual std::vector<OutletBinding> outlets() = 0;
  [[nodiscard]] virtual std::vector<ActionBinding> actions() = 0;

  // Called once for each load, when every outlet and action is connected.
  virtual void awakeFromNib() = 0;
};

}  // namespace publishing
