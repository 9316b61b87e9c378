// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <gtk/gtk.h>

#include "Publishing/platform/InterfaceOwner.h"
#include "shells/WidgetControls.h"
#include "shells/gtk/GtkControls.h"
#include "shells/gtk/GtkFieldNote.h"
#include "shells/gtk/GtkTextField.h"
#include "shells/gtk/InterfaceBuilder.h"

namespace publishing {

// An interface description made into widgets, with the platform's controls on them.
//
// What is an outlet follows from the description: every check button, combo box, entry and notebook
// that has an id, every box of radio buttons that has an id, and "pdeView", the view. Handlers of
// their signals are actions of the owner.
class GtkInterface : public WidgetControls<GtkCheckBox, GtkRadioMatrix, GtkPopUpButton,
                                           GtkTextField, GtkTabView, GtkFieldNote> {
 public:
  // `description` is GtkBuilder XML; nothing, with the reason in the log, when it is not.
  static std::unique_ptr<GtkInterface> make(const char* description, gssize length);

  // Connects the owner's outlets and actions by name. False, with nothing connected and the names
  // in the log, when a name of the description is unknown to the owner or names something else
  // there.
  bool bind(InterfaceOwner& owner);

  // The description's view; null when it has none.
  [[nodiscard]] const GtkView* view() const { return view_.get(); }

  // Bytes that are not UTF-8 are shown as U+FFFD; empty for none. Nothing happens when there is no
  // control of this name.
  void setTooltip(std::string_view name, const std::string& text);

  // Nothing happens without a window.
  void revealText(std::string_view name, std::size_t first, std::size_t length);

 private:
  explicit GtkInterface(BuiltInterface built);
  void addObject(GObject* object);
  void bindAction(InterfaceBinder& binder, const BuiltInterface::Signal& signal);

  BuiltInterface built_;
  std::unique_ptr<GtkView> view_;
};

}  // namespace publishing
