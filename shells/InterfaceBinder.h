// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "Publishing/platform/InterfaceOwner.h"

namespace publishing {

// Binds the controls of an interface description to its owner by name, the same way in every shell:
// collect all connections first, then connect them all or none.
class InterfaceBinder {
 public:
  explicit InterfaceBinder(InterfaceOwner& owner)
      : outlets_(owner.outlets()), actions_(owner.actions()) {}

  // The control must outlive the owner's use of it.
  template <class ControlType>
  void addOutlet(std::string_view name, ControlType& control) {
    for (const OutletBinding& binding : outlets_) {
      const auto* outlet = std::get_if<Outlet<ControlType>*>(&binding.outlet);
      if (binding.name != name || outlet == nullptr) continue;
      connections_.emplace_back([outlet = *outlet, &control] { outlet->connect(control); });
      return;
    }
    unknown_.emplace_back(name);
  }

  void addView(std::string_view name, View& view) {
    for (const OutletBinding& binding : outlets_) {
      auto* const* outlet = std::get_if<View**>(&binding.outlet);
      if (binding.name != name || outlet == nullptr) continue;
      connections_.emplace_back([outlet = *outlet, &view] { *outlet = &view; });
      return;
    }
    unknown_.emplace_back(name);
  }

  // The owner's action of that name and signature; an empty function, which makes connect() fail,
  // when there is none.
  template <class... Sender>
  std::function<void(Sender...)> action(std::string_view name) {
    for (const ActionBinding& binding : actions_) {
      const auto* action = std::get_if<std::function<void(Sender...)>>(&binding.action);
      if (binding.name == name && action != nullptr) return *action;
    }
    unknown_.emplace_back(name);
    return {};
  }

  // Connects everything that was added; false, with nothing connected, when the owner does not know
  // one of the names or it stands for something else there.
  [[nodiscard]] bool connect() const {
    if (!unknown_.empty()) return false;
    for (const auto& connection : connections_)
      connection();
    return true;
  }

  // The names that the owner does not know, for an error message.
  [[nodiscard]] const std::vector<std::string>& unknownNames() const { return unknown_; }

 private:
  std::vector<OutletBinding> outlets_;
  std::vector<ActionBinding> actions_;
  std::vector<std::function<void()>> connections_;
  std::vector<std::string> unknown_;
};

}  // namespace publishing
