// SPDX-License-Identifier: Apache-2.0
// The platform's controls on Qt widgets, for Qt 5 and Qt 6 alike. Qt has signals for the user's
// gestures alone, but sends them for those of the mouse and the keyboard only. So the controls
// listen to changes, which accessibility tools make as well, and leave out their own.
//
// The widgets belong to the interface description, which lives longer than its controls.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Publishing/platform/Controls.h"
#include "shells/Guarded.h"

class QStandardItem;

namespace publishing {

// The panel's view: a widget that a host can place in its dialog, and has to take out of it before
// the dialog is destroyed.
class QtView final : public View {
 public:
  explicit QtView(QWidget* widget) : widget_(widget) {}

  [[nodiscard]] QWidget* widget() const { return widget_; }

 private:
  QWidget* widget_;
};

// A widget that can be enabled or not, and an ear for the user's gestures on it.
template <class Interface>
class QtControl : public Interface {
 public:
  explicit QtControl(QWidget* widget) : widget_(widget) {}

  // What the panel said, whatever a parent of the widget is.
  [[nodiscard]] bool isEnabled() const override {
    return widget_->isEnabledTo(widget_->parentWidget());
  }
  void setEnabled(bool enabled) override { widget_->setEnabled(enabled); }

  [[nodiscard]] QWidget* widget() const { return widget_; }

  // Called after each gesture by which the user changed the control, when its action is done.
  void setUserChanged(std::function<void()> changed) { changed_ = std::move(changed); }

 protected:
  void tellUserChanged() const {
    guarded([this] {
      if (changed_) changed_();
    });
  }

  // The receiver of the control's connections, which end with it.
  [[nodiscard]] QObject* receiver() { return &receiver_; }

  // Lives while the control's own code changes the widget.
  class Own : public QScopedValueRollback<bool> {
   public:
    explicit Own(QtControl& control) : QScopedValueRollback(control.isOwn_, true) {}
  };
  [[nodiscard]] bool isOwn() const { return isOwn_; }

 private:
  QWidget* widget_;
  bool isOwn_ = false;
  std::function<void()> changed_;
  QObject receiver_;
};

// A click takes it from mixed to off, as the panel has it; Qt's own goes on to a third state.
class TwoStateBox final : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void nextCheckState() override;
};

class QtCheckBox final : public QtControl<CheckBox> {
 public:
  using Action = std::function<void(CheckBox& sender)>;

  explicit QtCheckBox(TwoStateBox* box);

  [[nodiscard]] int state() const override;
  void setState(int state) override;
  void setAction(Action action) { action_ = std::move(action); }

 private:
  TwoStateBox* box_;
  Action action_;
};

// On the radio buttons of a group, in the order of their columns.
class QtRadioMatrix final : public QtControl<RadioMatrix> {
 public:
  using Action = std::function<void(RadioMatrix& sender)>;

  // `container` holds the buttons. Nothing is selected at first.
  QtRadioMatrix(QWidget* container, QButtonGroup* cells);

  [[nodiscard]] std::int64_t selectedColumn() const override;
  void selectCellAtRow(std::int64_t row, std::int64_t column) override;
  void deselectAllCells() override;
  void setAllowsEmptySelection(bool allowed) override { allowsEmptySelection_ = allowed; }

  void setAction(const QAbstractButton* cell, Action action);

 private:
  void send(std::size_t column);

  QButtonGroup* cells_;
  std::vector<Action> actions_;
  bool wasOnWhenPressed_ = false;  // the cell that is being clicked
  bool allowsEmptySelection_ = false;
};

class QtPopUpButton final : public QtControl<PopUpButton> {
 public:
  explicit QtPopUpButton(QComboBox* comboBox);

  void removeAllItems() override;
  void addItemsWithTitles(const std::vector<std::string>& titles) override;
  void setAutoenablesItems(bool /*autoenables*/) override {}  // Qt never enables items by itself
  [[nodiscard]] std::int64_t numberOfItems() const override;
  [[nodiscard]] std::string itemTitleAtIndex(std::int64_t index) const override;
  [[nodiscard]] bool isItemEnabledAtIndex(std::int64_t index) const override;
  void setItemEnabledAtIndex(std::int64_t index, bool enabled) override;
  void selectItemAtIndex(std::int64_t index) override;
  [[nodiscard]] std::int64_t indexOfSelectedItem() const override;
  [[nodiscard]] std::optional<std::string> titleOfSelectedItem() const override;
  void setState(int /*state*/) override {}

  // Shows a line above the item; no line for an index that has no item on both sides.
  void separateItem(std::int64_t index);

 private:
  // The line is a row of the menu, too.
  [[nodiscard]] int rowOf(std::int64_t index) const;
  // Null outside the menu.
  [[nodiscard]] QStandardItem* item(std::int64_t index) const;

  QComboBox* comboBox_;
  // As given; the widget shows them as far as they are UTF-8.
  std::vector<std::string> titles_;
  std::optional<int> line_;  // its row
};

class QtTabView final : public TabView {
 public:
  explicit QtTabView(QTabWidget* tabs);

  [[nodiscard]] std::int64_t numberOfTabViewItems() const override;
  [[nodiscard]] std::string tabViewItemLabelAtIndex(std::int64_t index) const override;
  void removeTabViewItemAtIndex(std::int64_t index) override;
  void setAction(std::function<void()> didSelect) { didSelect_ = std::move(didSelect); }

  [[nodiscard]] std::int64_t selectedIndex() const { return tabs_->currentIndex(); }

  // Selects the tab that the widget is in, if any; this is no gesture of the user's.
  void bringToFront(const QWidget* widget);

  [[nodiscard]] QTabWidget* widget() const { return tabs_; }

 private:
  QTabWidget* tabs_;
  std::function<void()> didSelect_;
  bool isChanging_ = false;  // by code of ours
  QObject receiver_;
};

}  // namespace publishing
