// SPDX-License-Identifier: Apache-2.0
// libcups asked about trays: which marked choices of other options forbid a tray.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <cups/ppd.h>

namespace publishing::corpus {

inline constexpr const char* kTray = "InputSlot";

struct Side {
  std::string option;
  std::string choice;  // empty: any choice of the option
};

// One of the PPD's constraints between a tray and another option, as written.
struct TrayConstraint {
  Side tray;
  Side other;
  bool trayFirst = true;  // the tray is the constraint's first side
};

// The PPD's constraints that involve a tray on either side, in its order, one entry for each; the
// option's name in any case, as libcups compares it.
std::vector<TrayConstraint> trayConstraintsOf(const ppd_file_t* ppd);

// Option names and choices are the same for libcups when they differ in case only.
bool sameForCups(const std::string& one, const std::string& other);

class TrayOracle {
 public:
  // Makes libcups forget the PPD's constraints that do not involve the option, InputSlot or another
  // one that trays are chosen by: it reports every conflict there is among the marked choices,
  // whatever it is asked about. libcups builds its table at the
  // first question and keeps it, so that the PPD's own list is as before afterwards. Marking a
  // choice asks already: the PPD must come as it was opened, or std::logic_error is thrown. It must
  // outlive the oracle.
  explicit TrayOracle(ppd_file_t* ppd, std::string option = kTray);

  // The choices that forbid this tray as libcups sees it with what is marked now, by option.
  [[nodiscard]] std::map<std::string, std::string> forbidding(const std::string& tray) const;

 private:
  ppd_file_t* ppd_;
  std::string option_;
};

}  // namespace publishing::corpus
