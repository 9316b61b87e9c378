// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "printing/JobSheets.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "printing/Remembering.h"
#include "printing/presets/Preset.h"
#include "programs/commands/PrintArguments.h"
#include "shells/headless/PanelUser.h"

namespace publishing {

// A job that can be sent: the printer's defaults, then what is remembered for the queue or the
// preset that the command line names in its place, and what else the command line asks for, in this
// order, taken through the panel's rules.
class PreparedJob {
 public:
  // Opens the printer and says on standard error what was left out. Throws PrintError for what the
  // printer, the panel or the queue refuses, with the remedy.
  explicit PreparedJob(PrintArguments& arguments);

  [[nodiscard]] const Printer& printer() const { return printer_; }
  [[nodiscard]] const JobTicket& ticket() const { return ticket_; }

  // What a document with that many pages comes out as.
  [[nodiscard]] JobSheets sheets(std::optional<int> documentPages) const;

  // What --json writes: the panel as panel scripts dump it, and the job made of it.
  [[nodiscard]] nlohmann::json report() const;

  // The panel's settings, as a preset is made of them.
  [[nodiscard]] StoredSettings::Values panelValues() const;

  // Stores the panel's settings for the queue. A layout that switches covers and inserts off leaves
  // what is remembered alone, and says so. Throws as StoredSettings::store.
  void remember() const;

 private:
  static void checkRule();
  void restore(const PrintArguments& arguments);
  void restorePreset(const PanelRequest& wish);
  void checkLosses(const Remembered& remembered, const PanelRequest& wish) const;
  void checkLayout(const JobWishes& wishes) const;
  void drivePanel(const JobWishes& wishes);
  void takeDefaultMedia(const JobWishes& wishes);
  void tellLeftOut(const JobWishes& wishes) const;
  void tellSidesLeftOut(const PanelRequest& wish) const;
  [[nodiscard]] std::string remedyForPages() const;
  void checkConflicts(bool ignore);
  [[nodiscard]] bool hasLayout() const;
  [[nodiscard]] std::string originOfLayout(const JobWishes& wishes) const;

  Printer printer_;
  JobTicket ticket_;
  std::optional<Preset> preset_;
  JobTicket remembered_;  // what is remembered for the queue, or the preset, alone
  std::unique_ptr<PanelUser> user_;
  JobTicket::Options toRemember_;
  std::vector<std::string> conflicts_;
};

}  // namespace publishing
