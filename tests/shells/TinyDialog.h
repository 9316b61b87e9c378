// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shells/DialogHost.h"
#include "shells/ToolkitDialog.h"
#include "shells/headless/HeadlessBundle.h"

namespace publishing {

// The smallest print dialog that can have the panel: its own tabs are a few values, its widgets the
// headless controls. There is no toolkit and no main loop; what a user would do is a call.
class TinyDialog final : public ToolkitDialog {
 public:
  TinyDialog() { host_->followPrinter(); }

  // --- the user and the program ---

  // Selects the printer with this PPD; nothing for none.
  void selectPrinter(std::optional<std::string> ppd);
  void selectFile();
  // One that the dialog itself still asks.
  void selectPending(const std::string& name);

  // While this is off, printers are asked in vain until answer() is called.
  bool answersAtOnce = true;
  void answer();
  void becomeLate() { late_(); }

  // Changes what the dialog's own tabs say.
  void change(const std::function<void(DialogJob& job)>& change);
  void lookAtTab();
  void leaveTab() { isTabInFront_ = false; }

  // Whether the job goes to the printer. Also done when the host presses Print.
  bool print() { return host_->mayPrint(); }

  // For what a user does with presets and Reset.
  [[nodiscard]] DialogHost& host() const { return *host_; }

  // As when the program destroys the dialog.
  void loseHost() { host_.reset(); }

  // The panel's controls for gestures; the panel must have been shown.
  [[nodiscard]] std::shared_ptr<HostBundle> bundle() const { return bundle_; }
  [[nodiscard]] HeadlessInterface& panel() const { return *bundle_->interface(); }

  // --- what is seen ---

  [[nodiscard]] bool hasPanel() const { return isPanelShown_; }
  [[nodiscard]] const std::string& message() const { return message_; }
  [[nodiscard]] const std::string& summary() const { return summary_; }
  [[nodiscard]] const JobSheets& sheets() const { return sheets_; }
  [[nodiscard]] const DialogJob& settings() const { return job_; }
  [[nodiscard]] const std::string& notices() const { return notices_; }
  [[nodiscard]] const std::string& outsideTab() const { return outsideTab_; }
  [[nodiscard]] std::string choice(const std::string& option) const;
  [[nodiscard]] bool isTabInFront() const override { return isTabInFront_; }

  // What the administrator has decided.
  HostRules decided;
  // How many pages the document has, if the program tells.
  std::optional<int> pages;
  // Whether the job went to the printer when the host pressed Print.
  bool isPrinted = false;

  // The options that the last job got.
  JobTicket::Options handedOver;

  // Called with the text of each alert, and of the question about conflicts.
  std::vector<std::string> alerts;
  std::function<void()> onAlert = [] {};
  bool insists = false;
  bool acceptsLosses = false;

 private:
  [[nodiscard]] std::optional<Selection> selection() const override { return selection_; }
  [[nodiscard]] DialogJob job() const override { return job_; }
  bool showChoice(const std::string& option, const std::string& choice, bool byUser) override;
  void handOver(const JobTicket::Options& options) override { handedOver = options; }
  [[nodiscard]] const DialogPlaces& places() const override { return places_; }
  void openPrinter(const std::string& queue, Opened opened, std::function<void()> late) override;
  void stopOpening() override { opened_ = nullptr; }
  [[nodiscard]] std::shared_ptr<HostBundle> makeBundle() override;
  void showMessage(const std::string& text, Waiting waiting) override;
  void offerPanel(const std::string& name) override { message_ = name; }
  void showPanel(View& view) override;
  void showNotices(const std::string& text) override { notices_ = text; }
  void setSummary(const std::string& text) override { summary_ = text; }
  [[nodiscard]] std::optional<int> documentPages() const override { return pages; }
  void showSheets(const JobSheets& sheets) override { sheets_ = sheets; }
  void showOutsideTab(const std::string& line) override { outsideTab_ = line; }
  void bringTabToFront() override { isTabInFront_ = true; }
  void pressPrint() override { isPrinted = print(); }
  [[nodiscard]] const HostRules& rules() const override { return decided; }
  bool insistsOnConflicts(const std::vector<Conflict>& conflicts) override;
  bool printsWithout(const std::string& losses) override;
  void sayHelpIsMissing() override { alerts.emplace_back("help"); }

  const DialogPlaces places_ = {"Needs two-sided printing.", "Switch off Reverse.",
                                "Needs one page per side.", "%s is not responding."};
  std::optional<Selection> selection_;
  DialogJob job_;
  Opened opened_;
  std::function<void()> late_;
  std::shared_ptr<HeadlessBundle> bundle_;
  bool isPanelShown_ = false;
  bool isTabInFront_ = false;
  std::string message_;
  std::string notices_;
  std::string summary_;
  JobSheets sheets_;
  std::string outsideTab_;
  std::unique_ptr<DialogHost> host_ = std::make_unique<DialogHost>(*this);
};

}  // namespace publishing
