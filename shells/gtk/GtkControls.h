// SPDX-License-Identifier: Apache-2.0
// The platform's controls on GTK's widgets. A control holds a reference to its widget and handlers
// on it; it blocks them while it changes the widget itself, because GTK signals every change and
// the panel wants to hear of the user's only. Which signal sends an action is said in the interface
// description.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtk/gtk.h>

#include "Publishing/platform/Controls.h"
#include "shells/Guarded.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// The panel's view: a widget that a host can place in its dialog.
class GtkView final : public View {
 public:
  explicit GtkView(GtkWidget* widget) : widget_(shareGObject(widget)) {}

  // Belongs to the interface description.
  [[nodiscard]] GtkWidget* widget() const { return widget_.get(); }

 private:
  GObjectPtr<GtkWidget> widget_;
};

// A widget that can be sensitive or not, and an ear for the user's gestures on it.
template <class Interface>
class GtkControl : public Interface {
 public:
  explicit GtkControl(GtkWidget* widget) : widget_(shareGObject(widget)) {}

  [[nodiscard]] bool isEnabled() const override { return gtk_widget_get_sensitive(widget()) != 0; }
  void setEnabled(bool enabled) override { gtk_widget_set_sensitive(widget(), enabled); }

  [[nodiscard]] GtkWidget* widget() const { return widget_.get(); }

  // Called after each gesture by which the user changed the control, when its action is done.
  void setUserChanged(std::function<void()> changed) { changed_ = std::move(changed); }

 protected:
  // To be blocked while the control's own code changes the widget.
  [[nodiscard]] SignalHandlers& handlers() { return handlers_; }

  void tellUserChanged() const {
    if (changed_) changed_();
  }

  // A handler for signals without arguments.
  static void userChanged(GtkWidget*, gpointer self) {
    guarded([&] { static_cast<GtkControl*>(self)->tellUserChanged(); });
  }

 private:
  GObjectPtr<GtkWidget> widget_;
  std::function<void()> changed_;
  SignalHandlers handlers_;
};

// On a GtkCheckButton; mixed is "inconsistent".
class GtkCheckBox final : public GtkControl<CheckBox> {
 public:
  using Action = std::function<void(CheckBox& sender)>;

  explicit GtkCheckBox(GtkCheckButton* button);

  [[nodiscard]] int state() const override;
  void setState(int state) override;

  // Sends the action at the signal, which must be one without arguments.
  void setAction(const char* signal, Action action);

 private:
  [[nodiscard]] GtkCheckButton* button() const { return GTK_CHECK_BUTTON(widget()); }

  Action action_;
};

// On a container of two radio buttons, in the order of their columns. A third button of their
// group is never shown: it is the active one when no cell is selected.
class GtkRadioMatrix final : public GtkControl<RadioMatrix> {
 public:
  using Action = std::function<void(RadioMatrix& sender)>;

  // Nothing is selected at first.
  explicit GtkRadioMatrix(GtkWidget* container);

  [[nodiscard]] std::int64_t selectedColumn() const override;
  void selectCellAtRow(std::int64_t row, std::int64_t column) override;
  void deselectAllCells() override;
  void setAllowsEmptySelection(bool allowed) override { allowsEmptySelection_ = allowed; }

  // Sends the action at the cell's signal when the cell is the selected one. A click on the cell
  // that is selected already must reach the panel too, so the signal should be "clicked".
  void setAction(GtkCheckButton* cell, const char* signal, const Action& action);

 private:
  struct Cell {
    GtkRadioMatrix* matrix;
    GObjectPtr<GtkCheckButton> button;
    Action action;
  };

  void activate(GtkCheckButton* button);
  void turnAllOff();
  static void clicked(GtkCheckButton* button, gpointer cell);
  static void dealtWith(GtkCheckButton* button, gpointer cell);

  std::vector<std::unique_ptr<Cell>> cells_;
  bool allowsEmptySelection_ = false;
};

// On a GtkComboBox in menu mode whose list has a title and a "sensitive" column and whose cell
// shows both.
class GtkPopUpButton final : public GtkControl<PopUpButton> {
 public:
  enum Column { kTitle, kSensitive };

  explicit GtkPopUpButton(GtkComboBox* comboBox);

  void removeAllItems() override;
  void addItemsWithTitles(const std::vector<std::string>& titles) override;
  void setAutoenablesItems(bool /*autoenables*/) override {}  // GTK never enables items by itself
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
  // The line is a row of the list, too.
  [[nodiscard]] gint rowOf(std::int64_t index) const;
  [[nodiscard]] GtkComboBox* comboBox() const { return GTK_COMBO_BOX(widget()); }
  [[nodiscard]] GtkListStore* items() const;
  [[nodiscard]] std::optional<GtkTreeIter> item(std::int64_t index) const;

  // As given; the widget shows them as far as they are UTF-8.
  std::vector<std::string> titles_;
  std::optional<gint> line_;  // its row
};

// On a GtkNotebook.
class GtkTabView final : public TabView {
 public:
  explicit GtkTabView(GtkNotebook* notebook) : notebook_(shareGObject(notebook)) {}

  [[nodiscard]] std::int64_t numberOfTabViewItems() const override;
  [[nodiscard]] std::string tabViewItemLabelAtIndex(std::int64_t index) const override;
  void removeTabViewItemAtIndex(std::int64_t index) override;

  [[nodiscard]] std::int64_t selectedIndex() const {
    return gtk_notebook_get_current_page(notebook());
  }

  // Selects the tab that the widget is in, if any; this is no gesture of the user's.
  void bringToFront(GtkWidget* widget);

  // Sends the action at the signal, which must be "switch-page".
  void setAction(const char* signal, std::function<void()> didSelect);

  [[nodiscard]] GtkNotebook* notebook() const { return notebook_.get(); }

 private:
  GObjectPtr<GtkNotebook> notebook_;
  std::function<void()> didSelect_;
  SignalHandlers handlers_;
};

}  // namespace publishing
