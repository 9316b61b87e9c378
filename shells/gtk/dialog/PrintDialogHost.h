// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtk/gtkunixprint.h>

#include "shells/DialogHost.h"
#include "shells/HostRules.h"
#include "shells/ToolkitDialog.h"
#include "shells/gtk/dialog/ButtonRowLine.h"
#include "shells/gtk/dialog/DialogOptionSet.h"
#include "shells/gtk/dialog/DialogPage.h"
#include "shells/gtk/dialog/PresetMenu.h"
#include "shells/gtk/dialog/PrinterFetch.h"
#include "shells/gtk/dialog/PrinterList.h"
#include "shells/gtk/dialog/RememberBox.h"
#include "shells/gtk/dialog/ResetButton.h"

namespace publishing {

// GTK's print dialog with the panel in a tab: hands its events to the host of the panel and does
// what the host wants of it. Belongs to the dialog and goes with it.
//
// The panel asks not to be listed. It is shown all the same unless HostRules says otherwise.
class PrintDialogHost final : private ToolkitDialog {
 public:
  // Adds the tab to a dialog that has not selected a printer yet; must come before the program
  // connects to its "response", best while it is constructed. False, with nothing done, when the
  // rules leave the panel out or, with a line in the log, this GTK lacks what is needed. Does
  // nothing for a dialog that has a host. What it throws leaves the dialog as it was.
  static bool attach(GtkPrintUnixDialog* dialog);

  // The dialog's host; null when it has none.
  static PrintDialogHost* of(GtkPrintUnixDialog* dialog);

  // Whether the tab has the panel, in place of a message that says why it does not.
  [[nodiscard]] bool hasPanel() const { return host_.hasPanel(); }

  PrintDialogHost(const PrintDialogHost&) = delete;
  PrintDialogHost& operator=(const PrintDialogHost&) = delete;
  ~PrintDialogHost() override;

 private:
  PrintDialogHost(GtkPrintUnixDialog* dialog, HostRules rules);

  static void detach(GtkPrintUnixDialog* dialog);
  void connect();
  void followPrinter();
  void refreshSoon();

  [[nodiscard]] std::optional<Selection> selection() const override;
  [[nodiscard]] DialogJob job() const override;
  [[nodiscard]] std::optional<int> documentPages() const override;
  bool showChoice(const std::string& option, const std::string& choice, bool byUser) override;
  void handOver(const JobTicket::Options& options) override;
  [[nodiscard]] const DialogPlaces& places() const override;
  void openPrinter(const std::string& queue, Opened opened, std::function<void()> late) override;
  void stopOpening() override { fetch_.reset(); }
  [[nodiscard]] std::shared_ptr<HostBundle> makeBundle() override;
  void showMessage(const std::string& text, Waiting waiting) override;
  void offerPanel(const std::string& name) override { page_.offerPanel(name); }
  void showPanel(View& view) override;
  void showNotices(const std::string& text) override { page_.showNotices(text); }
  void setSummary(const std::string& text) override;
  void showSheets(const JobSheets& sheets) override { page_.showSheets(sheets); }
  void showOutsideTab(const std::string& line) override;
  [[nodiscard]] bool isTabInFront() const override { return page_.isInFront(); }
  void bringTabToFront() override;
  void pressPrint() override;
  [[nodiscard]] const HostRules& rules() const override { return rules_; }
  bool insistsOnConflicts(const std::vector<Conflict>& conflicts) override;
  bool printsWithout(const std::string& losses) override;
  void sayHelpIsMissing() override;

  GtkPrintUnixDialog* dialog_;
  HostRules rules_;
  PrinterList printers_;
  DialogPage page_;
  DialogOptionSet options_;
  SignalHandlers optionHandlers_;
  std::unique_ptr<PrinterFetch> fetch_;
  guint refreshSource_ = 0;
  guint printSource_ = 0;
  DialogHost host_;
  PresetMenu presets_;
  ResetButton reset_;
  RememberBox remember_;
  ButtonRowLine line_;
  SignalHandlers handlers_;
};

}  // namespace publishing
