// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// What the administrator and the user decide about the panel in print dialogs. Read from the file
// "publishing/dialog/rules.ini" in the user's configuration folder ($XDG_CONFIG_HOME) or else in
// the system's ($XDG_CONFIG_DIRS):
//
//   [Dialog]
//   Extension=true          # false: print dialogs stay without the panel
//   ShowHiddenPanels=true   # show a panel although it asks not to be listed
//   PrinterSeconds=10       # how long a printer may take to answer before the dialog says so
//   Remember=true           # false: no choices are remembered from one job to the next
//
// The environment variables PUBLISHING_EXTENSION and PUBLISHING_SHOW_HIDDEN_PANELS (0 or "off": no;
// anything else: yes) overrule the file.
struct HostRules {
  bool extension = true;
  bool showHiddenPanels = true;
  unsigned printerSeconds = 10;  // 1 to 600
  bool remember = true;

  // The folder of the help book: $PUBLISHING_DATA_DIR, else where the program was installed to.
  std::string dataFolder;

  // The file that was read; empty when there is none.
  std::string file;

  // For the user: that nothing is remembered, and which file says so; empty when it may be.
  [[nodiscard]] std::string againstRemembering() const;

  // Whether print dialogs are to have the panel, which asks not to be listed.
  [[nodiscard]] bool wantPanel() const;

  // A value that makes no sense is reported in the log and left at its default.
  static HostRules load();
};

}  // namespace publishing
