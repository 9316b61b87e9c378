// SPDX-License-Identifier: Apache-2.0
// An outlet is the panel's reference to one of its controls. Until the interface description is
// loaded it refers to a stand-in: changing it does nothing and it answers zero, false or nothing to
// every question. The panel can thus be driven before it is seen.
#pragma once

#include "Publishing/platform/Controls.h"

namespace publishing {

template <class ControlType>
class Absent;

template <>
class Absent<CheckBox> final : public CheckBox {
 public:
  [[nodiscard]] bool isEnabled() const override { return false; }
  void setEnabled(bool) override {}
  [[nodiscard]] int state() const override { return 0; }
  void setState(int) override {}
};

template <>
class Absent<RadioMatrix> final : public RadioMatrix {
 public:
  [[nodiscard]] bool isEnabled() const override { return false; }
  void setEnabled(bool) override {}
  [[nodiscard]] std::int64_t selectedColumn() const override { return 0; }
  void selectCellAtRow(std::int64_t, std::int64_t) override {}
  void deselectAllCells() override {}
  void setAllowsEmptySelection(bool) override {}
};

template <>
class Absent<PopUpButton> final : public PopUpButton {
 public:
  [[nodiscard]] bool isEnabled() const override { return false; }
  void setEnabled(bool) override {}
  void removeAllItems() override {}
  void addItemsWithTitles(const std::vector<std::string>&) override {}
  void setAutoenablesItems(bool) override {}
  [[nodiscard]] std::int64_t numberOfItems() const override { return 0; }
  [[nodiscard]] std::string itemTitleAtIndex(std::int64_t) const override { return {}; }
  [[nodiscard]] bool isItemEnabledAtIndex(std::int64_t) const override { return false; }
  void setItemEnabledAtIndex(std::int64_t, bool) override {}
  void selectItemAtIndex(std::int64_t) override {}
  [[nodiscard]] std::int64_t indexOfSelectedItem() const override { return 0; }
  [[nodiscard]] std::optional<std::string> titleOfSelectedItem() const override { return {}; }
  void setState(int) override {}
};

template <>
class Absent<TextField> final : public TextField {
 public:
  [[nodiscard]] bool isEnabled() const override { return false; }
  void setEnabled(bool) override {}
  [[nodiscard]] std::optional<std::string> stringValue() const override { return {}; }
  void setStringValue(const std::string&) override {}
  void setFormatter(std::shared_ptr<const Formatter>) override {}
};

template <>
class Absent<TabView> final : public TabView {
 public:
  [[nodiscard]] std::int64_t numberOfTabViewItems() const override { return 0; }
  [[nodiscard]] std::string tabViewItemLabelAtIndex(std::int64_t) const override { return {}; }
  void removeTabViewItemAtIndex(std::int64_t) override {}
};

template <class ControlType>
class Outlet {
 public:
  // Does not take ownership: the control belongs to the interface description.
  void connect(ControlType& control) { control_ = &control; }

  [[nodiscard]] bool isConnected() const { return control_ != &absent_; }

  ControlType* operator->() const { return control_; }
  ControlType& operator*() const { return *control_; }

 private:
  // Shared by all outlets of the type: it has no state.
  static inline Absent<ControlType> absent_;

  ControlType* control_ = &absent_;
};

}  // namespace publishing
