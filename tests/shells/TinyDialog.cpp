// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/TinyDialog.h"

#include <utility>

#include "printing/PrintError.h"

namespace publishing {

void TinyDialog::selectPrinter(std::optional<std::string> ppd) {
  selection_ = ppd ? std::optional(Selection{*ppd}) : std::nullopt;
  job_ = {};
  // As a dialog's own tabs do: every option shows the PPD's default.
  if (ppd) job_.options = {{"CoverMediaType", "PrnDef"}, {"PageMediaType", "PrnDef"}};
  host_->followPrinter();
}

void TinyDialog::selectFile() {
  selection_ = Selection{"Print to File", true};
  host_->followPrinter();
}

void TinyDialog::selectPending(const std::string& name) {
  selection_ = Selection{name, false, true};
  host_->followPrinter();
}

void TinyDialog::openPrinter(const std::string&, Opened opened, std::function<void()> late) {
  opened_ = std::move(opened);
  late_ = std::move(late);
  if (answersAtOnce) answer();
}

void TinyDialog::answer() {
  const Opened opened = std::exchange(opened_, nullptr);
  if (!opened) return;
  std::unique_ptr<Printer> printer;
  std::string problem;
  try {
    printer = std::make_unique<Printer>(Printer::openPPD(selection_->printer));
  } catch (const PrintError& error) {
    problem = error.what();
  }
  opened(std::move(printer), problem);
}

void TinyDialog::change(const std::function<void(DialogJob& job)>& change) {
  change(job_);
  host_->refresh();
}

void TinyDialog::lookAtTab() {
  isTabInFront_ = true;
  host_->refresh();
}

std::string TinyDialog::choice(const std::string& option) const {
  const auto found = job_.options.find(option);
  return found != job_.options.end() ? found->second : "";
}

bool TinyDialog::showChoice(const std::string& option, const std::string& choice, bool) {
  if (!job_.options.contains(option)) return false;
  job_.options[option] = choice;
  return true;
}

std::shared_ptr<HostBundle> TinyDialog::makeBundle() {
  bundle_ = std::make_shared<HeadlessBundle>(
      [this](const auto&, const std::string& message, const auto&) {
        alerts.push_back(message);
        onAlert();
      });
  return bundle_;
}

void TinyDialog::showMessage(const std::string& text, Waiting) {
  isPanelShown_ = false;
  message_ = text;
}

void TinyDialog::showPanel(View&) {
  isPanelShown_ = true;
  message_.clear();
}

bool TinyDialog::insistsOnConflicts(const std::vector<Conflict>& conflicts) {
  for (const Conflict& conflict : conflicts)
    alerts.push_back(conflict.text());
  const bool answer = insists;
  onAlert();
  return answer;
}

bool TinyDialog::printsWithout(const std::string& losses) {
  alerts.push_back(losses);
  const bool answer = acceptsLosses;
  onAlert();
  return answer;
}

}  // namespace publishing
