// SPDX-License-Identifier: Apache-2.0
#include "shells/HostedPanel.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <glib.h>

#include "base/Translation.h"
#include "printing/OfflineSheets.h"
#include "printing/PrintError.h"
#include "printing/Remembering.h"
#include "shells/MediaReason.h"
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

constexpr const char* kNone = "None";

// The panel takes these anew from the ticket at each refresh, which would undo what the user picked
// in the controls meanwhile.
void dropIndexes(JobTicket& ticket) {
  for (const char* key : {kCmIndex, kPiIndex, kPageinsertValue})
    ticket.setValue(key, std::nullopt);
}

}  // namespace

HostedPanel::HostedPanel(std::unique_ptr<Printer> printer, const DialogJob& job,
                         std::shared_ptr<HostBundle> bundle, bool mayRemember,
                         HostBundle::UserChanged changed)
    : printer_(std::move(printer)),
      ticket_(printer_->newTicket()),
      bundle_(std::move(bundle)),
      panel_(panelOf(plugin_, bundle_, std::make_shared<TicketCallback>(*printer_, ticket_))),
      controls_(*panel_),
      list_(*bundle_, controls_),
      mayRemember_(mayRemember),
      remembers_(mayRemember) {
  bundle_->setUserChanged(std::move(changed));
  for (const PublishingFeature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen != job.options.end()) dialogMedia_[feature.option] = chosen->second;
  }
  const JobTicket ofDefaults = printer_->newTicket();
  defaultLayout_.reverse = ofDefaults.getValue(kOutputOrder) == "Reverse";
  defaultLayout_.booklet = layoutOf(printer_->defaults()).booklet;
  for (const PublishingFeature& feature : kFeatures) {
    Media& media = media_[feature.option];
    media.nothing = choiceWhenOff(feature, *printer_->ppd());
    // The marks of a printer that was just opened are those of its defaults.
    for (const PPDChoice& choice : printer_->ppd()->choices(feature.option)) {
      media.keywords.push_back(choice.choice);
      if (choice.marked)
        media.isDefaulted = choice.choice != kNone && choice.choice != media.nothing;
    }
  }
  loadStored();
}

void HostedPanel::loadStored() {
  const Remembered remembered = mayRemember_ ? recall(StoredSettings(), *printer_) : Remembered();
  if (remembered.isSwitchedOff) remembers_ = false;
  losses_ = remembered.losses;
  notices_ = printer_->warnings();
  notices_.insert(notices_.end(), remembered.warnings.begin(), remembered.warnings.end());
  notices_.insert(notices_.end(), losses_.begin(), losses_.end());
  for (const std::string& notice : notices_)
    g_message("%s", notice.c_str());
  for (const auto& [key, value] : remembered.values)
    ticket_.setValue(key, value);
  wish_ = PanelWish(ticket_);
  takeDefaultMedia();
  dropIndexes(ticket_);
}

// The panel starts with its first medium; a default option of the queue or the user (lpoptions) is
// a choice of the user's.
void HostedPanel::takeDefaultMedia() {
  for (const PublishingFeature& feature : kFeatures) {
    const auto chosen = findJobOption(printer_->defaults(), feature.option);
    if (chosen == printer_->defaults().end() || wish_.isOn(feature)) continue;
    setMedium(feature, chosen->second);
  }
}

bool HostedPanel::affectsJob(const DialogJob& job) const {
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](const auto& feature) {
    if (wish_.isOn(feature)) return true;
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
  list_.takeOver();
  separateTrays();
  showWish();
  return view;
}

// The last media of both options stand for the trays.
void HostedPanel::separateTrays() const {
  const auto trays = std::ssize(printer_->ppd()->choices(kTray));
  if (trays == 0) return;
  for (const PublishingFeature& feature : kFeatures)
    bundle_->separateItem(feature.popUp, controls_.popUp(feature.popUp).numberOfItems() - trays);
}

void HostedPanel::takeJob(const DialogJob& job) {
  const JobLayout said = layoutOf(job.options);
  const int numberUp = said.numberUp.value_or(1);
  const bool reverse = job.reverse || said.reverse.value_or(*defaultLayout_.reverse);
  ticket_.setSides(job.sides);
  ticket_.setNumberUp(job.numberUp > 1 || !JobTicket::isLayout(numberUp) ? job.numberUp : numberUp);
  ticket_.setBooklet(said.booklet.value_or(defaultLayout_.booklet.value_or(false)));
  ticket_.setReverse(reverse);
  job_ = job;
  printer_->ppd()->markDefaults();
  printer_->ppd()->mark(printer_->defaults());
  printer_->ppd()->mark({{"sides", keywordOf(job.sides)}});
  printer_->ppd()->mark(job.options);
}

void HostedPanel::follow(const DialogJob& job) {
  takeJob(job);
  showWish();
}

// The panel takes the state of its controls from the ticket, which is the job's own again after.
void HostedPanel::showWish() {
  const JobTicket job = ticket_;
  wish_.putInto(ticket_);
  panel_->restoreValuesAndReturnError();
  panel_->willShow();
  ticket_ = job;
}

void HostedPanel::noteGesture(const std::string& outlet) {
  list_.noteGesture();
  const bool hadCovers = wish_.isOn(kCoverMode);
  const bool hadInserts = wish_.isOn(kPageInsert);
  const auto sides = wish_.coverSides();
  if (wish_.note(*panel_, controls_)) showWish();
  keepsInserts_ = keepsInserts_ && !wish_.isOn(kPageInsert);
  const bool isFirstTime = !hadCovers && !sides;
  // The panel clears the sides for each click on a kind of covers, the one that is chosen included.
  const bool lostSides = outlet == outlet::CmFrontandBackMatrix && sides.value_or(0) != 0;
  if (isFirstTime || lostSides) startCovers();
  if (!hadCovers) startWithMedium(kCoverMode);
  if (!hadInserts) startWithMedium(kPageInsert);
}

// A feature that is switched on wants a paper: not the driver's choice of none.
void HostedPanel::startWithMedium(const PublishingFeature& feature) {
  if (!isShownOn(feature) || mediumOf(feature) != kNone) return;
  const PopUpButton& menu = controls_.popUp(feature.popUp);
  const auto& keywords = media_.at(feature.option).keywords;
  for (std::size_t index = 0; index < keywords.size(); ++index) {
    if (keywords[index] == kNone || !menu.isItemEnabledAtIndex(static_cast<std::int64_t>(index))) {
      continue;
    }
    wish_.setMedium(feature, index);
    return showWish();
  }
}

void HostedPanel::startCovers() {
  if (!isShownOn(kCoverMode)) return;
  for (const char* side : {outlet::CmFrontOutside, outlet::CmFrontInside, outlet::CmBackOutside,
                           outlet::CmBackInside}) {
    if (controls_.checkBox(side).state() == 1) return;
  }
  controls_.checkBox(outlet::CmFrontOutside).setState(1);
  static_cast<void>(wish_.note(*panel_, controls_));
}

bool HostedPanel::isShownOn(const PublishingFeature& feature) const {
  return controls_.checkBox(feature.checkBox).state() == 1;
}

bool HostedPanel::isForbidden(const PublishingFeature& feature) const {
  return !controls_.checkBox(feature.checkBox).isEnabled();
}

std::string HostedPanel::mediumOf(const PublishingFeature& feature) const {
  const std::int64_t index = controls_.popUp(feature.popUp).indexOfSelectedItem();
  return media_.at(feature.option)
      .keywords.at(static_cast<std::size_t>(std::max<std::int64_t>(index, 0)));
}

void HostedPanel::setMedium(const PublishingFeature& feature, const std::string& medium) {
  const auto& keywords = media_.at(feature.option).keywords;
  const auto found = std::find(keywords.begin(), keywords.end(), medium);
  if (found == keywords.end()) return;
  wish_.setMedium(feature, static_cast<std::size_t>(found - keywords.begin()));
}

void HostedPanel::pick(const PublishingFeature& feature, const std::string& medium) {
  if (isForbidden(feature)) return;
  const bool wantsNothing = medium == kNone || medium == media_.at(feature.option).nothing;
  if (wantsNothing && !isShownOn(feature)) return;
  const bool switchesOn = medium != kNone && !isShownOn(feature);
  if (switchesOn) {
    controls_.switchTo(controls_.checkBox(feature.checkBox), true, feature.action);
    noteGesture(feature.checkBox);
  }
  wish_.switchTo(feature, medium != kNone);
  setMedium(feature, medium);
  showWish();
}

void HostedPanel::takeMedia(const DialogJob& job) {
  for (const PublishingFeature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen == job.options.end()) continue;
    std::string& last = dialogMedia_[feature.option];
    if (chosen->second == last) continue;
    last = chosen->second;
    if (!isShownOn(feature) || last != mediumOf(feature)) pick(feature, last);
  }
}

std::map<std::string, std::string> HostedPanel::media() {
  std::map<std::string, std::string> media;
  for (const PublishingFeature& feature : kFeatures) {
    if (isShownOn(feature)) {
      media[feature.option] = mediumOf(feature);
    } else if (dialogMedia_[feature.option] == kNone) {
      continue;  // wants nothing either
    } else if (const auto& nothing = media_.at(feature.option).nothing) {
      media[feature.option] = *nothing;
    } else if (givenMedia_.contains(feature.option)) {
      media[feature.option] = mediumOf(feature);
    }
  }
  givenMedia_ = media;
  bool marksChange = false;
  for (const auto& [option, choice] : media) {
    const auto known = printer_->ppd()->choice(option, choice);
    marksChange = marksChange || (known && !known->marked);
    printer_->ppd()->mark(option, choice);
  }
  // The marks decide which trays the panel offers.
  if (marksChange) showWish();
  return media;
}

std::optional<PageListFault> HostedPanel::faultInList() const {
  panel_->updateSettings();
  const PublishingSettings& state = panel_->state();
  if (state.pageinsertEnableState != 1) return std::nullopt;
  return faultInPages(state.pageNumValue.value_or(""), listRules());
}

PageListRules HostedPanel::listRules() const {
  const auto sides = static_cast<Sides>(ticket_.getDuplex().value_or(1));
  return {sides != Sides::OneSided, panel_->state().covermodeValue};
}

std::optional<std::string> HostedPanel::lossOfInserts() const {
  const auto fault = faultInList();
  if (!fault) return std::nullopt;
  const std::string list = panel_->state().pageNumValue.value_or("");
  return translated("The pages remembered for inserted sheets (%s) cannot be used for this job. %s",
                    list, fault->reason);
}

void HostedPanel::leaveOutInserts() {
  wish_.switchTo(kPageInsert, false);
  keepsInserts_ = true;
  showWish();
}

void HostedPanel::revealFault() {
  const auto fault = faultInList();
  if (fault) bundle_->revealText(outlet::PiPageNum, fault->first, fault->length);
}

std::optional<JobTicket::Options> HostedPanel::save() {
  const auto fault = faultInList();
  bundle_->setAlertDetail(fault ? fault->reason : std::string());
  const bool isAccepted = panel_->saveValuesAndReturnError();
  auto settings = ticket_.copyAsDictionary();
  dropIndexes(ticket_);
  if (!isAccepted) return std::nullopt;
  leaveOutMediaOff(*settings);
  return settings;
}

void HostedPanel::leaveOutMediaOff(JobTicket::Options& settings) const {
  for (const PublishingFeature& feature : kFeatures) {
    if (isOn(feature, ticket_)) continue;
    settings.erase(feature.option);
    const Media& media = media_.at(feature.option);
    if (media.isDefaulted && media.nothing) settings[feature.option] = *media.nothing;
  }
}

void HostedPanel::remember(const JobTicket::Options& settings) const {
  if (!mayRemember_) return;
  std::vector<PublishingFeature> kept;
  for (const PublishingFeature& feature : kFeatures) {
    const bool isLeftOut = keepsInserts_ && std::string_view(feature.option) == kPageInsert.option;
    if (isLeftOut || (wish_.isOn(feature) && isForbidden(feature))) kept.push_back(feature);
  }
  try {
    if (remembers_) {
      publishing::remember(StoredSettings(), *printer_, settings, kept);
    } else {
      switchOffRemembering(StoredSettings(), printer_->name());
    }
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

std::string HostedPanel::noteOnDriver() const {
  const bool isAnythingOn = std::any_of(std::begin(kFeatures), std::end(kFeatures),
                                        [this](const auto& feature) { return hasOn(feature); });
  return isAnythingOn ? publishing::noteOnDriver(*printer_) : std::string();
}

void HostedPanel::showReasons(const DialogPlaces& places, const JobSheets& sheets) {
  offerAgain(*panel_, controls_);
  withholdNone(*panel_, *printer_, controls_);
  const std::string against = reasonAgainstFeatures(job_, ticket_, *printer_, places);
  publishing::showReasons(*bundle_, controls_, *panel_, *printer_, against, places);
  list_.show(listRules(), sheets, reasonAgainstList(*panel_, against));
}

}  // namespace publishing
