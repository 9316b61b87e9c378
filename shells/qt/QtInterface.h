// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Publishing/platform/InterfaceOwner.h"
#include "shells/WidgetControls.h"
#include "shells/qt/InterfaceWidgets.h"
#include "shells/qt/QtControls.h"
#include "shells/qt/QtFieldNote.h"
#include "shells/qt/QtTextField.h"

namespace publishing {

// An interface description made into widgets, with the platform's controls on them.
//
// What is an outlet follows from the description: every check button, combo box, entry and notebook
// that has an id, every box of radio buttons that has an id, and "pdeView", the view. Handlers of
// their signals are actions of the owner.
class QtInterface : public WidgetControls<QtCheckBox, QtRadioMatrix, QtPopUpButton, QtTextField,
                                          QtTabView, QtFieldNote> {
 public:
  // `description` is GtkBuilder XML; nothing, with the reason in the log, when it is not, or when
  // it needs widgets that are not known here.
  static std::unique_ptr<QtInterface> make(std::string_view description);

  // Connects the owner's outlets and actions by name. False, with nothing connected and the names
  // in the log, when a name of the description is unknown to the owner or names something else
  // there.
  bool bind(InterfaceOwner& owner);

  // The description's view. A host that shows it takes it out of its dialog before that goes.
  [[nodiscard]] const QtView* view() const { return &view_; }

  // Bytes that are not UTF-8 are shown as U+FFFD; empty for none. Accessibility tools get it as the
  // control's description. Nothing happens when there is no control of this name.
  void setTooltip(std::string_view name, const std::string& text);

  // See HostBundle::setNote. The field's note is its description too, unless it has a tooltip.
  void setNote(std::string_view name, const FieldNote& note);

 private:
  explicit QtInterface(std::vector<InterfaceObject> objects);
  void addControl(const InterfaceWidgets::Made& made);
  void bindAction(InterfaceBinder& binder, const InterfaceWidgets::Made& made,
                  std::string_view handler);

  std::vector<InterfaceObject> objects_;
  InterfaceWidgets widgets_;
  QtView view_;
  // What accessibility tools say of a control that has no tooltip.
  std::map<std::string, QString> explanations_;
};

}  // namespace publishing
