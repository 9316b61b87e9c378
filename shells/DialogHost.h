// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <string>

#include "printing/presets/Presets.h"
#include "shells/HostedPanel.h"
#include "shells/PresetQuestions.h"
#include "shells/ToolkitDialog.h"

namespace publishing {

// Drives the panel in a tab of a print dialog, whatever the toolkit: follows the selected printer
// and the dialog's own tabs, keeps the dialog open when the user presses Print on a bad page list
// or on conflicting choices, and puts what the panel saved among the options of the job.
//
// Everything runs on the dialog's thread. The dialog may be destroyed, and its host with it, while
// one of the modal questions is open.
class DialogHost {
 public:
  // `dialog` must outlive the host.
  explicit DialogHost(ToolkitDialog& dialog) : dialog_(dialog) {}
  DialogHost(const DialogHost&) = delete;
  DialogHost& operator=(const DialogHost&) = delete;

  // To be called when another printer was selected, and once at first.
  void followPrinter();

  // Brings the panel and the dialog's own tabs in step, the user's last choice winning. To be
  // called when the dialog's own tabs changed and when the panel's tab comes to the front.
  void refresh();

  // Whether the job may be printed as it is; if so, its options were handed over. To be called when
  // the user presses Print.
  [[nodiscard]] bool mayPrint();

  void showHelp();

  // To be called when the user presses Reset in the panel's tab: switches covers and inserts off
  // and forgets what is remembered for the printer. It can be undone while the dialog lasts, also
  // after other printers were selected. Both answer what went wrong, for the user; empty when
  // nothing did.
  std::string reset();
  std::string undoReset();
  [[nodiscard]] bool canUndoReset() const;

  // Whether the choices for the selected printer are remembered when the job is printed, for a
  // check box in the panel's tab; and why the user cannot change that, empty when that is possible.
  struct Remembering {
    bool isOn = false;
    std::string against;
  };
  [[nodiscard]] Remembering remembering() const;

  // To be called when the user changes it. Takes effect with the job: printed with remembering off,
  // it has the printer forgotten.
  void setRemembering(bool on);

  // To be called when the user chooses, saves or deletes a preset in the panel's tab. What the
  // printer does not have of a preset is shown as a notice. Nothing happens without the panel.
  void usePreset(const std::string& name, PresetQuestions& questions);
  void savePreset(PresetQuestions& questions);
  void deletePreset(const std::string& name, PresetQuestions& questions);

  // Whether the tab has the panel, in place of a message that says why it does not.
  [[nodiscard]] bool hasPanel() const { return panel_ != nullptr; }

 private:
  void showPrinter(std::unique_ptr<Printer> printer, const std::string& problem);
  void leavePanel(const std::string& message, ToolkitDialog::Waiting waiting);
  // Makes the panel's view if there is none yet; false when there cannot be one.
  bool openPanel();
  // Shows the panel's media in the dialog's own tabs.
  void giveMedia(bool byUser);
  void gestureMade(const std::string& outlet);
  void panelChanged();
  [[nodiscard]] bool hasRemembered(const std::string& queue) const;
  // Says and draws what would come out.
  void showSheets(const JobSheets& sheets);
  // For a user who is on another tab; empty when nothing is on.
  [[nodiscard]] std::string whatIsOn() const;
  // Asks the user about what is remembered and cannot be printed, unless the panel has shown it.
  bool acceptsLosses();
  // Print was pressed before there is a panel.
  bool mayPrintWithoutPanel();
  [[nodiscard]] std::string askingText() const;
  [[nodiscard]] std::string lateText() const;

  ToolkitDialog& dialog_;
  std::map<std::string, HostedPanel::Forgotten> forgotten_;  // by printer
  // The printer that is being asked; empty when none is.
  std::string asked_;
  bool isLate_ = false;          // it has not answered for some time
  bool printsOnAnswer_ = false;  // Print was pressed meanwhile
  bool isSeen_ = false;          // the user has looked at the panel
  // Shared with whoever waits for an alert of the panel, which may outlast the host.
  std::shared_ptr<HostedPanel> panel_;
  std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

}  // namespace publishing
