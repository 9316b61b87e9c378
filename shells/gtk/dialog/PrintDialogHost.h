// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include <gtk/gtkunixprint.h>

#include "shells/HostRules.h"
#include "shells/gtk/dialog/DialogPage.h"
#include "shells/gtk/dialog/HostedPanel.h"
#include "shells/gtk/dialog/PrinterFetch.h"
#include "shells/gtk/dialog/PrinterOptionSet.h"

namespace publishing {

// Drives the panel in a tab of a GTK print dialog: follows the selected printer and the dialog's
// own tabs, keeps the dialog open when the user presses Print on a bad page list or on conflicting
// choices, and puts what the panel saved among the options of the job. Belongs to the dialog and
// goes with it.
//
// The panel asks not to be listed. It is shown all the same unless HostRules says otherwise.
class PrintDialogHost {
 public:
  // Adds the tab to a dialog that has not selected a printer yet; must come before the program
  // connects to its "response", best while it is constructed. False, with nothing done, when the
  // rules leave the panel out or, with a line in the log, this GTK lacks what is needed. Does
  // nothing for a dialog that has a host. What it throws leaves the dialog as it was.
  static bool attach(GtkPrintUnixDialog* dialog);

  // The dialog's host; null when it has none.
  static PrintDialogHost* of(GtkPrintUnixDialog* dialog);

  // Whether the tab has the panel, in place of a message that says why it does not.
  [[nodiscard]] bool hasPanel() const { return panel_ != nullptr; }

  PrintDialogHost(const PrintDialogHost&) = delete;
  PrintDialogHost& operator=(const PrintDialogHost&) = delete;
  ~PrintDialogHost();

 private:
  PrintDialogHost(GtkPrintUnixDialog* dialog, HostRules rules);

  static void detach(GtkPrintUnixDialog* dialog);
  void connect();
  void followPrinter();
  void showPrinter(std::unique_ptr<Printer> printer, const std::string& problem);
  // Makes the panel's view if there is none yet; false when there cannot be one.
  bool openPanel();
  void showMessage(const std::string& text, bool waiting = false);

  // Brings the panel and the dialog's own tabs in step, the user's last choice winning.
  void refresh();
  void refreshSoon();
  // Shows the panel's media in the dialog's own tabs.
  void giveMedia();
  void giveStoredMedia();
  void panelChanged();
  void showHelp();

  // Whether the job may be printed as it is.
  bool mayPrint();
  void handOver(const JobTicket::Options& settings) const;
  void bringToFront();

  GtkPrintUnixDialog* dialog_;
  HostRules rules_;
  DialogPage page_;
  PrinterOptionSet options_;
  SignalHandlers optionHandlers_;
  std::unique_ptr<PrinterFetch> fetch_;
  std::unique_ptr<HostedPanel> panel_;
  guint refreshSource_ = 0;
  SignalHandlers handlers_;
};

}  // namespace publishing
