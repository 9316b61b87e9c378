// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "shells/headless/PanelUser.h"

namespace publishing {

// What a command line asks of a job. Some of it has options of its own and can be said with -o too
// (number-up, outputorder, sides, CoverMediaType, ...): both are the same wish.
struct JobWishes {
  std::optional<Sides> sides;
  std::optional<int> numberUp;
  std::optional<bool> reverse;
  std::optional<bool> booklet;
  std::optional<int> copies;
  std::optional<std::string> pages;  // page ranges, "1-4,7"
  std::vector<std::string> options;  // as -o has them
  PanelRequest panel;

  // Takes what the options say of the wishes above, puts everything but the panel's wishes into the
  // ticket and renews the printer's marks. Throws PrintError: Refused when two wishes contradict
  // each other and as assignOption does, Usage for values that make no sense.
  void applyTo(Printer& printer, JobTicket& ticket);

  [[nodiscard]] bool wantsCover() const { return panel.cover && *panel.cover != "none"; }
  [[nodiscard]] bool wantsInserts() const { return panel.insert && *panel.insert != "none"; }

 private:
  void take(Printer& printer, JobTicket& ticket, const std::string& option);
  bool takeMedium(const std::string& name, const std::string& value);
  bool takeLayout(const std::string& name, const std::string& value);
};

}  // namespace publishing
