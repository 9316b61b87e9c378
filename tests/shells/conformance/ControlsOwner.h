// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Publishing/platform/InterfaceOwner.h"

namespace publishing {

// Owns the interface "Publishing" in the panel's place: has every outlet and action of the panel,
// and records the actions instead of acting.
class ControlsOwner final : public InterfaceOwner {
 public:
  struct Sent {
    std::string action;
    const void* sender;  // the control; null for the tab view
    bool operator==(const Sent&) const = default;
  };

  ControlsOwner();

  [[nodiscard]] std::vector<OutletBinding> outlets() override;
  [[nodiscard]] std::vector<ActionBinding> actions() override;
  void awakeFromNib() override;

  // From now on the owner has no outlet or action of that name.
  void forget(std::string_view name) { forgotten_ = name; }

  // From now on the outlet or action of that name is of another kind.
  void confuse(std::string_view name) { confused_ = name; }

  [[nodiscard]] bool isAnythingConnected() const;
  [[nodiscard]] bool isEverythingConnected() const;

  View* view = nullptr;
  Outlet<TabView> tabView;
  std::map<std::string, Outlet<CheckBox>, std::less<>> checkBoxes;
  Outlet<RadioMatrix> matrix;
  std::map<std::string, Outlet<PopUpButton>, std::less<>> popUps;
  Outlet<TextField> pageField;

  std::vector<Sent> sent;

  // How often the interface came to life, and whether all was connected each time.
  int awakenings = 0;
  bool wasConnectedOnAwakening = true;

 private:
  std::string forgotten_;
  std::string confused_;
  Outlet<TabView> decoyOutlet_;
  Outlet<CheckBox> otherDecoyOutlet_;
};

}  // namespace publishing
