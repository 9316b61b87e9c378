// SPDX-License-Identifier: Apache-2.0
// The controls that the panel needs from a user-interface toolkit.
//
// Common to all of them: changing a control from code never fires its action; only a gesture of
// the user on an enabled control does. A disabled control can still be changed from code.
// Controls belong to the interface description that holds them (Bundle::loadInterface).
// All texts are UTF-8. Everything runs on the thread of the user interface.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Publishing/platform/Formatter.h"

namespace publishing {

// A piece of user interface that a host can place in its dialog.
class View {
 public:
  virtual ~View() = default;
};

class Control {
 public:
  virtual ~Control() = default;

  [[nodiscard]] virtual bool isEnabled() const = 0;
  virtual void setEnabled(bool enabled) = 0;
};

class CheckBox : public Control {
 public:
  // 0 off, 1 on, -1 mixed.
  [[nodiscard]] virtual int state() const = 0;
  virtual void setState(int state) = 0;
};

// Radio cells in one row of two columns.
class RadioMatrix : public Control {
 public:
  // The column of the selected cell, counted from 0; -1 when none is selected.
  [[nodiscard]] virtual std::int64_t selectedColumn() const = 0;

  // Selects the cell; column -1 (or one outside the row) selects none if an empty selection is
  // allowed and changes nothing otherwise.
  virtual void selectCellAtRow(std::int64_t row, std::int64_t column) = 0;

  // Leaves no cell selected if an empty selection is allowed; changes nothing otherwise.
  virtual void deselectAllCells() = 0;

  virtual void setAllowsEmptySelection(bool allowed) = 0;
};

// A menu of which one item is selected. Items keep the order in which they were added; equal titles
// stay separate items. A new item is enabled.
class PopUpButton : public Control {
 public:
  virtual void removeAllItems() = 0;
  virtual void addItemsWithTitles(const std::vector<std::string>& titles) = 0;

  // Whether the toolkit decides by itself which items are enabled; the panel turns that off.
  virtual void setAutoenablesItems(bool autoenables) = 0;

  [[nodiscard]] virtual std::int64_t numberOfItems() const = 0;

  // `index` must lie in [0, numberOfItems()).
  [[nodiscard]] virtual std::string itemTitleAtIndex(std::int64_t index) const = 0;
  [[nodiscard]] virtual bool isItemEnabledAtIndex(std::int64_t index) const = 0;

  // A disabled item can be selected from code, never by the user. An index outside the menu is
  // ignored.
  virtual void setItemEnabledAtIndex(std::int64_t index, bool enabled) = 0;

  // An index outside the menu selects nothing.
  virtual void selectItemAtIndex(std::int64_t index) = 0;

  // -1 when nothing is selected.
  [[nodiscard]] virtual std::int64_t indexOfSelectedItem() const = 0;

  // Nothing when nothing is selected.
  [[nodiscard]] virtual std::optional<std::string> titleOfSelectedItem() const = 0;

  // Accepted because every button has a state; a pop-up shows nothing of it.
  virtual void setState(int state) = 0;
};

class TextField : public Control {
 public:
  // Always a string for a field that exists.
  [[nodiscard]] virtual std::optional<std::string> stringValue() const = 0;

  // The formatter is not asked.
  virtual void setStringValue(const std::string& value) = 0;

  // From now on the formatter is asked at every keystroke or paste; when it refuses, the whole edit
  // is dropped.
  virtual void setFormatter(std::shared_ptr<const Formatter> formatter) = 0;
};

class TabView {
 public:
  virtual ~TabView() = default;

  [[nodiscard]] virtual std::int64_t numberOfTabViewItems() const = 0;

  // The label of a tab; `index` must lie in [0, numberOfTabViewItems()).
  [[nodiscard]] virtual std::string tabViewItemLabelAtIndex(std::int64_t index) const = 0;

  // Removing the selected tab selects a neighbour. The panel is not told of it: only a change of
  // tab by the user reaches the panel. An index outside the tabs is ignored.
  virtual void removeTabViewItemAtIndex(std::int64_t index) = 0;
};

}  // namespace publishing
