// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialogButtonBox>
#include <QObject>
#include <QPrintDialog>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shells/DialogHost.h"
#include "shells/HostRules.h"
#include "shells/ToolkitDialog.h"
#include "shells/qt/dialog/QtDialogOptions.h"
#include "shells/qt/dialog/QtDialogPage.h"
#include "shells/qt/dialog/QtPresetMenu.h"
#include "shells/qt/dialog/QtPrinterFetch.h"
#include "shells/qt/dialog/QtRememberBox.h"
#include "shells/qt/dialog/QtResetButton.h"

namespace publishing {

// Qt's print dialog with the panel in a tab: hands its events to the host of the panel and does
// what the host wants of it. Belongs to the tab and goes with the dialog.
//
// The panel asks not to be listed. It is shown all the same unless HostRules says otherwise.
class QtPrintDialogHost final : public QObject, private ToolkitDialog {
 public:
  // Adds the tab to a dialog before it is first shown. False, with nothing done, when the rules
  // leave the panel out or, with a line in the log, the dialog has not what is needed. Does nothing
  // for a dialog that has a host. What it throws leaves the dialog as it was.
  static bool attach(QPrintDialog* dialog);

  // The dialog's host; null when it has none.
  static QtPrintDialogHost* of(const QPrintDialog* dialog);

  // Whether the tab has the panel, in place of a message that says why it does not.
  [[nodiscard]] bool hasPanel() const { return host_.hasPanel(); }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  // The dialog's own widgets that the host needs.
  struct Parts {
    QTabWidget* tabs;
    QComboBox* printers;
    QDialogButtonBox* buttons;
    [[nodiscard]] bool areComplete() const;
  };
  static Parts partsOf(const QPrintDialog* dialog);

  QtPrintDialogHost(QPrintDialog* dialog, const Parts& parts, HostRules rules, QtDialogPage* page);

  void connectDialog();
  void followPrinter();
  void refreshSoon();
  void clicked(QAbstractButton* button);
  void dialogEvent(const QEvent& event);
  void giveOptions();

  [[nodiscard]] std::optional<Selection> selection() const override;
  [[nodiscard]] DialogJob job() const override { return options_.job(); }
  [[nodiscard]] std::optional<int> documentPages() const override;
  bool showChoice(const std::string& option, const std::string& choice, bool byUser) override;
  void handOver(const JobTicket::Options& options) override { toHandOver_ = options; }
  [[nodiscard]] const DialogPlaces& places() const override;
  void openPrinter(const std::string& queue, Opened opened, std::function<void()> late) override;
  void stopOpening() override { fetch_.reset(); }
  [[nodiscard]] std::shared_ptr<HostBundle> makeBundle() override;
  void showMessage(const std::string& text, Waiting waiting) override;
  void offerPanel(const std::string& name) override { page_->offerPanel(name); }
  void showPanel(View& view) override;
  void showNotices(const std::string& text) override { page_->showNotices(text); }
  [[nodiscard]] const HostRules& rules() const override { return rules_; }
  void setSummary(const std::string& text) override;
  void showSheets(const JobSheets& sheets) override { page_->showSheets(sheets); }
  void showOutsideTab(const std::string& line) override { page_->mark(!line.empty()); }
  [[nodiscard]] bool isTabInFront() const override { return page_->isVisible(); }
  void bringTabToFront() override;
  void pressPrint() override;
  bool insistsOnConflicts(const std::vector<Conflict>& conflicts) override;
  bool printsWithout(const std::string& losses) override;
  void sayHelpIsMissing() override;

  QPrintDialog* dialog_;
  Parts parts_;
  HostRules rules_;
  QtDialogPage* page_;
  QtDialogOptions options_;
  std::unique_ptr<QtPrinterFetch> fetch_;
  std::optional<JobTicket::Options> toHandOver_;  // when the dialog is accepted
  bool isRefreshing_ = false;                     // soon
  DialogHost host_;
  QtPresetMenu presets_;
  QtResetButton reset_;
  QtRememberBox remember_;
};

}  // namespace publishing
