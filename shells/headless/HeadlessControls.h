// SPDX-License-Identifier: Apache-2.0
// The platform's controls in memory, exactly as the interfaces describe them, plus the gestures of
// a user: click, choose, type, select. A gesture that a real user could not make does nothing.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Publishing/platform/Controls.h"
#include "shells/FieldNote.h"

namespace publishing {

class HeadlessView final : public View {};

// What all controls have: the enabled state, a tooltip, and an ear for the user's gestures.
template <class Interface>
class HeadlessControl : public Interface {
 public:
  [[nodiscard]] bool isEnabled() const override { return enabled_; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }

  [[nodiscard]] const std::string& tooltip() const { return tooltip_; }
  void setTooltip(const std::string& tooltip) { tooltip_ = tooltip; }

  // Called after each gesture that did something, when the control's action is done.
  void setUserChanged(std::function<void()> changed) { changed_ = std::move(changed); }

 protected:
  void tellUserChanged() const {
    if (changed_) changed_();
  }

 private:
  bool enabled_ = true;
  std::string tooltip_;
  std::function<void()> changed_;
};

class HeadlessCheckBox final : public HeadlessControl<CheckBox> {
 public:
  using Action = std::function<void(CheckBox& sender)>;

  [[nodiscard]] int state() const override { return state_; }
  void setState(int state) override { state_ = state; }

  void setAction(Action action) { action_ = std::move(action); }

  // Turns the box from 0 to 1, from anything else to 0, then sends its action.
  void click();

 private:
  int state_ = 0;
  Action action_;
};

class HeadlessRadioMatrix final : public HeadlessControl<RadioMatrix> {
 public:
  using Action = std::function<void(RadioMatrix& sender)>;

  [[nodiscard]] std::int64_t selectedColumn() const override { return selectedColumn_; }
  void selectCellAtRow(std::int64_t row, std::int64_t column) override;
  void deselectAllCells() override;
  void setAllowsEmptySelection(bool allowed) override { allowsEmptySelection_ = allowed; }

  void setActions(std::vector<Action> actionByColumn) { actions_ = std::move(actionByColumn); }

  // Selects the cell and sends its action, also when the cell is selected already.
  void click(std::int64_t column);

 private:
  static constexpr std::int64_t kColumns = 2;

  std::int64_t selectedColumn_ = -1;
  bool allowsEmptySelection_ = false;
  std::vector<Action> actions_;
};

class HeadlessPopUpButton final : public HeadlessControl<PopUpButton> {
 public:
  void removeAllItems() override;
  void addItemsWithTitles(const std::vector<std::string>& titles) override;
  void setAutoenablesItems(bool /*autoenables*/) override {}  // nothing is ever enabled by itself
  [[nodiscard]] std::int64_t numberOfItems() const override;
  [[nodiscard]] std::string itemTitleAtIndex(std::int64_t index) const override;
  [[nodiscard]] bool isItemEnabledAtIndex(std::int64_t index) const override;
  void setItemEnabledAtIndex(std::int64_t index, bool enabled) override;
  void selectItemAtIndex(std::int64_t index) override;
  [[nodiscard]] std::int64_t indexOfSelectedItem() const override { return selected_; }
  [[nodiscard]] std::optional<std::string> titleOfSelectedItem() const override;
  void setState(int /*state*/) override {}

  // The item that has a line above it; nothing for none.
  void separateItem(std::int64_t index) { separated_ = index; }
  [[nodiscard]] std::optional<std::int64_t> separated() const { return separated_; }

  // Selects an enabled item.
  void choose(std::int64_t index);

 private:
  struct Item {
    std::string title;
    bool enabled = true;
  };

  [[nodiscard]] bool holds(std::int64_t index) const;

  std::vector<Item> items_;
  std::int64_t selected_ = -1;
  std::optional<std::int64_t> separated_;
};

class HeadlessTextField final : public HeadlessControl<TextField> {
 public:
  [[nodiscard]] std::optional<std::string> stringValue() const override { return value_; }
  void setStringValue(const std::string& value) override { value_ = value; }
  void setFormatter(std::shared_ptr<const Formatter> formatter) override {
    formatter_ = std::move(formatter);
  }

  // What the keyboard would replace; nothing at first.
  void select(std::size_t first, std::size_t length) { selected_ = value_.substr(first, length); }
  [[nodiscard]] const std::optional<std::string>& selected() const { return selected_; }

  // What is said below the field.
  [[nodiscard]] const FieldNote& note() const { return note_; }
  void setNote(const FieldNote& note) { note_ = note; }

  // Empties the field, then types the text character by character. A character that the formatter
  // refuses is left out.
  void type(const std::string& text);

 private:
  std::string value_;
  std::optional<std::string> selected_;
  FieldNote note_;
  std::shared_ptr<const Formatter> formatter_;
};

class HeadlessTabView final : public TabView {
 public:
  [[nodiscard]] std::int64_t numberOfTabViewItems() const override;
  [[nodiscard]] std::string tabViewItemLabelAtIndex(std::int64_t index) const override;
  void removeTabViewItemAtIndex(std::int64_t index) override;

  void setLabels(std::vector<std::string> labels) { labels_ = std::move(labels); }
  void setAction(std::function<void()> didSelect) { didSelect_ = std::move(didSelect); }

  [[nodiscard]] std::int64_t selectedIndex() const { return selected_; }

  // Brings another tab to the front and tells the panel.
  void select(std::int64_t index);

 private:
  std::vector<std::string> labels_;
  std::int64_t selected_ = 0;
  std::function<void()> didSelect_;
};

}  // namespace publishing
