// SPDX-License-Identifier: Apache-2.0
#include "shells/DialogHost.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <glib.h>

#include "base/Translation.h"
#include "printing/SheetSentence.h"
#include "printing/StoredSettings.h"
#include "shells/HostMessages.h"

namespace publishing {
namespace {

// Those of a job's settings that come from the panel, media included.
JobTicket::Options panelOptions(const JobTicket::Options& settings) {
  JobTicket::Options options;
  const auto take = [&](const char* key) {
    const auto saved = settings.find(key);
    if (saved != settings.end()) options.insert(*saved);
  };
  for (const PublishingFeature& feature : kFeatures) {
    for (const char* key : feature.keys)
      take(key);
    take(feature.option);
  }
  return options;
}

}  // namespace

void DialogHost::leavePanel(const std::string& message, ToolkitDialog::Waiting waiting) {
  dialog_.showMessage(message, waiting);
  dialog_.showOutsideTab({});
  panel_.reset();
}

std::string DialogHost::askingText() const {
  if (!printsOnAnswer_) {
    return translated("Asking the printer %s about covers and inserts…", asked_);
  }
  return translated(
      "Asking the printer %s about the covers and inserts that are remembered for it. The document "
      "is printed as soon as it answers.",
      asked_);
}

std::string DialogHost::lateText() const {
  if (!printsOnAnswer_) {
    return translated(dialog_.places().printerIsLate, asked_);
  }
  return translated(
      "The printer %s is not responding. The document is printed as soon as it does, with the "
      "covers and inserts that are remembered for it. Press Print again to print without them now.",
      asked_);
}

void DialogHost::followPrinter() {
  using Waiting = ToolkitDialog::Waiting;
  dialog_.stopOpening();
  asked_.clear();
  isLate_ = false;
  printsOnAnswer_ = false;
  const auto selection = dialog_.selection();
  if (!selection) {
    leavePanel(translated("Choose a printer to see its covers and inserts."), Waiting::NoPanel);
    return;
  }
  if (selection->isFile) {
    leavePanel(
        translated(
            "Covers and inserts need a printer; they are not available when you print to a file."),
        Waiting::NoPanel);
    return;
  }
  if (selection->isPending) {
    leavePanel(translated("Asking the printer %s what it can do…", selection->printer),
               Waiting::Late);
    return;
  }
  asked_ = selection->printer;
  leavePanel(askingText(), Waiting::Asking);
  dialog_.openPrinter(
      asked_,
      [this](std::unique_ptr<Printer> opened, const std::string& problem) {
        asked_.clear();
        showPrinter(std::move(opened), problem);
        // Where there is no panel now, the tab says why, and the user decides.
        const bool prints = std::exchange(printsOnAnswer_, false) && panel_ != nullptr;
        if (prints) dialog_.pressPrint();
      },
      [this] {
        isLate_ = true;
        leavePanel(lateText(), Waiting::Late);
      });
}

void DialogHost::showPrinter(std::unique_ptr<Printer> printer, const std::string& problem) {
  if (printer == nullptr) {
    leavePanel(problem, ToolkitDialog::Waiting::NoPanel);
    return;
  }
  if (!HostedPanel::suits(*printer)) {
    std::string message = translated(
        "The driver of the printer %s does not make covers and inserts. On many printers an "
        "administrator can add them: publishing printer enable -d %s",
        printer->name(), printer->name());
    if (printer->ppd() != nullptr && !printer->warnings().empty()) {
      message += "\n\n" + linesOf(printer->warnings());
    }
    leavePanel(message, ToolkitDialog::Waiting::NoPanel);
    return;
  }
  const DialogJob job = dialog_.job();
  // A panel that is still asking something may outlast the host.
  const auto changed = [this, life = std::weak_ptr(life_)](const std::string& outlet) {
    if (!life.expired()) gestureMade(outlet);
  };
  panel_ = std::make_shared<HostedPanel>(std::move(printer), job, dialog_.makeBundle(),
                                         dialog_.rules().remember, changed);
  dialog_.offerPanel(panel_->name());
  if (dialog_.isTabInFront() || panel_->affectsJob(job)) openPanel();
}

bool DialogHost::openPanel() {
  if (panel_->isOpen()) return true;
  const DialogJob job = dialog_.job();
  View* view = panel_->open(job);
  if (view == nullptr) {
    leavePanel(translated("The panel cannot be shown because it is not completely installed."),
               ToolkitDialog::Waiting::NoPanel);
    return false;
  }
  dialog_.showPanel(*view);
  dialog_.showNotices(linesOf(panel_->notices()));
  isSeen_ = dialog_.isTabInFront();
  panel_->takeMedia(job);
  giveMedia(false);
  panelChanged();
  return true;
}

void DialogHost::refresh() {
  if (panel_ == nullptr) return;
  const bool isNeeded = dialog_.isTabInFront() || panel_->affectsJob(dialog_.job());
  if (!panel_->isOpen() && (!isNeeded || !openPanel())) return;
  // Opening the panel shows its media in the dialog, which are not the user's choices.
  const DialogJob job = dialog_.job();
  isSeen_ = isSeen_ || dialog_.isTabInFront();
  panel_->follow(job);
  panel_->takeMedia(job);
  panelChanged();
}

void DialogHost::giveMedia(bool byUser) {
  for (const auto& [option, choice] : panel_->media()) {
    if (dialog_.showChoice(option, choice, byUser)) panel_->dialogShows(option, choice);
  }
}

void DialogHost::gestureMade(const std::string& outlet) {
  if (panel_ == nullptr) return;
  panel_->noteGesture(outlet);
  panelChanged();
}

void DialogHost::panelChanged() {
  if (panel_ == nullptr) return;
  giveMedia(true);
  const JobSheets sheets = panel_->sheets(dialog_.job(), dialog_.documentPages());
  panel_->showReasons(dialog_.places(), sheets);
  showSheets(sheets);
  dialog_.showOutsideTab(whatIsOn());
}

void DialogHost::showSheets(const JobSheets& sheets) {
  std::string text = sentenceOf(sheets);
  for (const std::string& warning : warningsOf(sheets))
    text += '\n' + warning;
  const std::string note = panel_->noteOnDriver();
  if (!note.empty()) text += '\n' + note;
  dialog_.showSheets(sheets);
  dialog_.setSummary(text);
}

void DialogHost::showHelp() {
  if (panel_ != nullptr && !panel_->showHelp()) dialog_.sayHelpIsMissing();
}

bool DialogHost::hasRemembered(const std::string& queue) const {
  if (!dialog_.rules().remember) return false;
  const StoredSettings::Values values = StoredSettings().load(queue).values;
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](const auto& feature) {
    const auto state = values.find(feature.stateKey);
    return state != values.end() && state->second == kStoredOn;
  });
}

// Without the panel the job would go out without the covers and inserts that are remembered.
bool DialogHost::mayPrintWithoutPanel() {
  if (asked_.empty() || !hasRemembered(asked_)) return true;
  if (isLate_ && printsOnAnswer_) return true;
  printsOnAnswer_ = true;
  if (isLate_) {
    dialog_.showMessage(lateText(), ToolkitDialog::Waiting::Late);
  } else {
    dialog_.showMessage(askingText(), ToolkitDialog::Waiting::Asking);
  }
  dialog_.bringTabToFront();
  return false;
}

bool DialogHost::acceptsLosses() {
  if (isSeen_) return true;
  const auto panel = panel_;
  const std::weak_ptr<const bool> life = life_;
  std::vector<std::string> losses = panel->losses();
  const auto lossOfInserts = panel->lossOfInserts();
  if (lossOfInserts) losses.push_back(*lossOfInserts);
  if (losses.empty()) return true;
  const bool accepts = dialog_.printsWithout(linesOf(losses));
  if (life.expired() || panel_ != panel) return false;
  if (accepts && lossOfInserts) {
    panel->leaveOutInserts();
    panelChanged();
  }
  return accepts;
}

bool DialogHost::mayPrint() {
  if (panel_ == nullptr) return mayPrintWithoutPanel();
  if (!openPanel()) return true;
  refresh();
  // The alert and the question below run a main loop of their own, in which the program may destroy
  // the dialog, or another printer may be selected.
  const auto panel = panel_;
  const std::weak_ptr<const bool> life = life_;
  const auto isOver = [&] { return life.expired() || panel_ != panel; };

  const bool goesOn = acceptsLosses();
  if (isOver()) return false;
  if (!goesOn) {
    isSeen_ = true;
    dialog_.bringTabToFront();
    panel->revealFault();
    return false;
  }
  const auto settings = panel->save();
  if (isOver()) return false;
  if (!settings) {
    dialog_.bringTabToFront();
    panel->revealFault();
    return false;
  }
  const auto conflicts = panel->conflicts();
  if (!conflicts.empty()) {
    const bool insists = dialog_.insistsOnConflicts(conflicts);
    if (isOver() || !insists) return false;
  }
  dialog_.handOver(panelOptions(*settings));
  panel->remember(*settings);
  return true;
}

}  // namespace publishing
