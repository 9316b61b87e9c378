// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <gtk/gtk.h>

#include "Publishing/platform/InterfaceOwner.h"
#include "shells/gtk/GtkControls.h"
#include "shells/gtk/GtkTextField.h"
#include "shells/gtk/InterfaceBuilder.h"

namespace publishing {

class InterfaceBinder;

// An interface description made into widgets, with the platform's controls on them.
//
// What is an outlet follows from the description: every check button, combo box, entry and notebook
// that has an id, every box of radio buttons that has an id, and "pdeView", the view. Handlers of
// their signals are actions of the owner.
class GtkInterface {
 public:
  // `description` is GtkBuilder XML; nothing, with the reason in the log, when it is not.
  static std::unique_ptr<GtkInterface> make(const char* description, gssize length);

  // Connects the owner's outlets and actions by name. False, with nothing connected and the names
  // in the log, when a name of the description is unknown to the owner or names something else
  // there.
  bool bind(InterfaceOwner& owner);

  // The description's view; null when it has none.
  [[nodiscard]] const GtkView* view() const { return view_.get(); }

  // A control by its outlet's name; null when there is none of this name and kind.
  [[nodiscard]] GtkCheckBox* checkBox(std::string_view name);
  [[nodiscard]] GtkRadioMatrix* radioMatrix(std::string_view name);
  [[nodiscard]] GtkPopUpButton* popUpButton(std::string_view name);
  [[nodiscard]] GtkTextField* textField(std::string_view name);
  [[nodiscard]] GtkTabView* tabView(std::string_view name);

  // Called after each gesture by which the user changed a control.
  void setUserChanged(const std::function<void(const std::string& outlet)>& changed);

  // Bytes that are not UTF-8 are shown as U+FFFD; empty for none. Nothing happens when there is no
  // control of this name.
  void setTooltip(std::string_view name, const std::string& text);

  // See HostBundle::revealText.
  void revealText(std::string_view name, std::size_t first, std::size_t length);

 private:
  template <class ControlType>
  using ControlsByName = std::map<std::string, std::unique_ptr<ControlType>, std::less<>>;

  explicit GtkInterface(BuiltInterface built);
  template <class Function>
  void forEachControl(Function function);
  void addObject(GObject* object);
  void bindOutlets(InterfaceBinder& binder);
  void bindAction(InterfaceBinder& binder, const BuiltInterface::Signal& signal);

  BuiltInterface built_;
  std::unique_ptr<GtkView> view_;
  ControlsByName<GtkCheckBox> checkBoxes_;
  ControlsByName<GtkRadioMatrix> radioMatrices_;
  ControlsByName<GtkPopUpButton> popUpButtons_;
  ControlsByName<GtkTextField> textFields_;
  ControlsByName<GtkTabView> tabViews_;
};

}  // namespace publishing
