// SPDX-License-Identifier: Apache-2.0
#include "shells/HostedPanel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/Remembering.h"
#include "shells/PanelOptions.h"
#include "shells/PanelReasons.h"

namespace publishing {
namespace {

std::shared_ptr<PublishingPDE> panelOf(PublishingPDEPlugin& plugin,
                                       const std::shared_ptr<HostBundle>& bundle,
                                       std::shared_ptr<PDEPluginCallback> callback) {
  plugin.initWithBundle(bundle);
  return plugin.PDEPanelsForType(kPrinterModulePanelType, std::move(callback))->front();
}

}  // namespace

HostedPanel::HostedPanel(std::unique_ptr<Printer> printer, const DialogJob& job,
                         std::shared_ptr<HostBundle> bundle, std::function<void()> changed)
    : printer_(std::move(printer)),
      ticket_(printer_->newTicket()),
      bundle_(std::move(bundle)),
      panel_(panelOf(plugin_, bundle_, std::make_shared<TicketCallback>(*printer_, ticket_))),
      controls_(*panel_) {
  bundle_->setUserChanged(std::move(changed));
  for (const PublishingFeature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen != job.options.end()) dialogMedia_[feature.option] = chosen->second;
  }
  loadStored();
}

void HostedPanel::loadStored() {
  const Remembered remembered = recall(StoredSettings(), *printer_);
  for (const std::string& warning : remembered.warnings)
    g_message("%s", warning.c_str());
  for (const std::string& loss : remembered.losses)
    g_message("%s", loss.c_str());
  for (const auto& [key, value] : remembered.values)
    ticket_.setValue(key, value);
}

bool HostedPanel::affectsJob(const DialogJob& job) const {
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](const auto& feature) {
    if (ticket_.getValue(feature.stateKey) == kStoredOn) return true;
    const auto now = job.options.find(feature.option);
    const auto before = dialogMedia_.find(feature.option);
    return now != job.options.end() &&
           (before == dialogMedia_.end() || before->second != now->second);
  });
}

bool HostedPanel::suits(const Printer& printer) {
  return printer.ppd() != nullptr &&
         std::all_of(std::begin(kFeatures), std::end(kFeatures), [&](const auto& feature) {
           return !printer.ppd()->choices(feature.option).empty();
         });
}

View* HostedPanel::open(const DialogJob& job) {
  isOpen_ = true;
  // Media that the user chose meanwhile are for takeMedia().
  DialogJob untouched = job;
  for (const auto& [option, choice] : dialogMedia_)
    untouched.options[option] = choice;
  takeJob(untouched);
  View* view = panel_->panelView();
  if (view == nullptr) return nullptr;
  panel_->restoreValuesAndReturnError();
  panel_->willShow();
  dropStoredIndexes();
  return view;
}

// The panel picks the stored items anew at each refresh. From here on the controls are right, and
// what the user picks in them must last.
void HostedPanel::dropStoredIndexes() {
  for (const char* key : {kCmIndex, kPiIndex, kPageinsertValue})
    ticket_.setValue(key, std::nullopt);
}

void HostedPanel::takeJob(const DialogJob& job) {
  ticket_.setSides(job.sides);
  ticket_.setNumberUp(job.numberUp);
  ticket_.setReverse(job.reverse);
  printer_->ppd()->markDefaults();
  printer_->ppd()->mark(printer_->defaults());
  printer_->ppd()->mark({{"sides", keywordOf(job.sides)}});
  printer_->ppd()->mark(job.options);
}

void HostedPanel::follow(const DialogJob& job) {
  takeJob(job);
  panel_->willShow();
}

bool HostedPanel::isOn(const PublishingFeature& feature) const {
  return controls_.checkBox(feature.checkBox).state() == 1;
}

std::string HostedPanel::mediumOf(const PublishingFeature& feature) const {
  const auto choices = printer_->ppd()->choices(feature.option);
  const std::int64_t index = controls_.popUp(feature.popUp).indexOfSelectedItem();
  return choices.at(static_cast<std::size_t>(std::max<std::int64_t>(index, 0))).choice;
}

void HostedPanel::pick(const PublishingFeature& feature, const std::string& medium) {
  CheckBox& box = controls_.checkBox(feature.checkBox);
  if (!box.isEnabled()) return;
  if (box.state() != 1) controls_.switchTo(box, true, feature.action);
  const auto choices = printer_->ppd()->choices(feature.option);
  for (std::size_t index = 0; index < choices.size(); ++index) {
    if (choices[index].choice != medium) continue;
    controls_.popUp(feature.popUp).selectItemAtIndex(static_cast<std::int64_t>(index));
  }
}

void HostedPanel::takeMedia(const DialogJob& job) {
  for (const PublishingFeature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen == job.options.end()) continue;
    std::string& last = dialogMedia_[feature.option];
    if (chosen->second == last) continue;
    last = chosen->second;
    if (last != mediumOf(feature)) pick(feature, last);
  }
}

std::map<std::string, std::string> HostedPanel::media() {
  std::map<std::string, std::string> media;
  for (const PublishingFeature& feature : kFeatures) {
    bool& wasOn = wasOn_[feature.option];
    wasOn = wasOn || isOn(feature);
    if (!wasOn) continue;
    const std::string medium = mediumOf(feature);
    printer_->ppd()->mark(feature.option, medium);
    media[feature.option] = medium;
  }
  return media;
}

std::optional<JobTicket::Options> HostedPanel::save() {
  if (!panel_->saveValuesAndReturnError()) {
    dropStoredIndexes();
    return std::nullopt;
  }
  auto settings = ticket_.copyAsDictionary();
  dropStoredIndexes();
  return settings;
}

void HostedPanel::remember(const JobTicket::Options& settings) const {
  try {
    publishing::remember(StoredSettings(), *printer_, settings);
  } catch (const PrintError& error) {
    g_message("%s", error.what());
  }
}

JobSheets HostedPanel::sheets(const DialogJob& job, std::optional<int> documentPages) const {
  panel_->updateSettings();
  JobTicket::Options options = *ticket_.copyAsDictionary();
  addPanelOptions(options, panel_->state(), job.sides != Sides::OneSided, mediumOf(kCoverMode),
                  mediumOf(kPageInsert));
  options["copies"] = std::to_string(job.copies);
  options["Collate"] = job.collated ? "True" : "False";
  if (!job.pageRanges.empty()) options["page-ranges"] = job.pageRanges;
  if (!job.pageSet.empty()) options["page-set"] = job.pageSet;
  return sheetsOf(options, printer_->ppd(), documentPages);
}

void HostedPanel::showReasons(const DialogPlaces& places) {
  publishing::showReasons(*bundle_, controls_, *panel_, *printer_, ticket_, places);
}

}  // namespace publishing
