// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

struct MenuItem {
  // A name is shown as it stands, shortened when it is long; in other texts "_" marks a letter.
  enum class Kind { Command, Name };

  Kind kind;
  std::string text;
  std::function<void()> chosen;  // none, and no items below: greyed
  std::vector<MenuItem> below;   // a submenu, if any
};

// A button that opens a menu, in sections with a line between them, which is made anew each time.
class MenuButton {
 public:
  using Sections = std::vector<std::vector<MenuItem>>;

  // `label` has a mnemonic, `name` is that of the widget.
  MenuButton(const std::string& label, const char* name, std::function<Sections()> makeMenu);
  MenuButton(const MenuButton&) = delete;
  MenuButton& operator=(const MenuButton&) = delete;
  ~MenuButton();

  [[nodiscard]] GtkWidget* widget() const { return button_.get(); }

 private:
  void fill();

  std::function<Sections()> makeMenu_;
  GObjectPtr<GtkWidget> button_;
  GObjectPtr<GObject> menu_;
  SignalHandlers handlers_;
};

}  // namespace publishing
