// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "programs/gtk-settings/GtkSettingsFile.h"
#include "programs/gtk-settings/GtkSettingsPlaces.h"
#include "programs/terminal/ExitStatus.h"

namespace publishing {

// The panel in the print dialogs of programs of one GTK, for "publishing extension": the entry
// gtk-print-backends of that GTK's settings. Where there is no panel for GTK 4 it is not switched
// on, and only what is asked for is said of it.
class GtkExtension {
 public:
  // For all users or for one; `remedy` is said when rights are missing.
  GtkExtension(GtkVersion gtk, bool system, const std::string& remedy);

  // Switch it on or off. Refused when another file decides otherwise. Throw PrintError (Trouble).
  ExitStatus enable();
  ExitStatus disable();

  // What was done, what is the case, as lines for the user; and what is wrong, on standard error.
  void tell() const;
  void tellState() const;
  void warnOfFaults() const;

  [[nodiscard]] bool isListed() const { return listsPublishing(backends_.list); }
  [[nodiscard]] bool isFound() const { return library_.has_value(); }

  // The state of GTK 3 has been in the result itself since there was nothing else.
  [[nodiscard]] nlohmann::json asJson() const;

 private:
  using Change = GtkSettingsFile::Change;

  void warnOfOtherFile() const;
  [[nodiscard]] std::string source() const;

  GtkVersion gtk_;
  bool system_;
  GtkSettingsPlaces places_;
  GtkSettingsFile file_;
  PrintBackends backends_;
  std::optional<std::string> library_;
  bool isEnabling_ = false;
  std::optional<Change> change_;
};

}  // namespace publishing
