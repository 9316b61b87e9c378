// SPDX-License-Identifier: Apache-2.0
// What a PPD says to the filter foomatic-rip: a command line that it runs for a job, and what the
// choices put into it. Here it is only read, to find out how a tray is chosen; nothing is ever run.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "printing/covers/PPDText.h"

namespace publishing {

class FoomaticDriver {
 public:
  explicit FoomaticDriver(const std::vector<PPDStatement>& statements);

  // The programs that the command line runs, without the options' additions to it; empty for a PPD
  // without command line, whose PostScript foomatic-rip passes on.
  [[nodiscard]] const std::set<std::string>& programs() const { return programs_; }

  // The Ghostscript devices that the command line and the options' settings name.
  [[nodiscard]] const std::set<std::string>& devices() const { return devices_; }

  [[nodiscard]] const std::string& commandLine() const { return commandLine_; }

  // What foomatic-rip makes of the option, "CmdLine", "JCL", "PS" or "Composite"; nothing for an
  // option that is no business of foomatic-rip's, whose choices have PostScript code.
  [[nodiscard]] std::optional<std::string> styleOf(std::string_view option) const;

  // What the choice adds to the command line; nothing when the PPD does not say.
  [[nodiscard]] std::optional<std::string> setting(std::string_view option,
                                                   std::string_view choice) const;

 private:
  void readDevices(const std::string& text);

  std::string commandLine_;
  std::set<std::string> programs_;
  std::set<std::string> devices_;
  std::map<std::string, std::string> styles_;    // by option
  std::map<std::string, std::string> settings_;  // by "option=choice"
};

}  // namespace publishing
