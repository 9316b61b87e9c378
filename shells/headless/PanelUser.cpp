// SPDX-License-Identifier: Apache-2.0
#include "shells/headless/PanelUser.h"

#include <algorithm>
#include <optional>

#include "Publishing/global.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "shells/MediaReason.h"
#include "shells/TicketCallback.h"

namespace publishing {

// A side's name on the command line, its check box, and what it takes to be offered.
struct PanelUser::Side {
  const char* name;
  const char* checkBox;
  const char* condition;
};

namespace {

constexpr const char* kNone = "none";
constexpr const char* kNeedsTwoSided = N_("it needs two-sided printing (--sides)");
constexpr const char* kNeedsBackCover = N_("it needs a back cover (--cover front-back)");
constexpr const char* kNeedsBoth =
    N_("it needs a back cover (--cover front-back) and two-sided printing (--sides)");
constexpr const char* kAlwaysOffered = "";

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

PanelUser::PanelUser(Printer& printer, JobTicket& ticket)
    : printer_(printer),
      bundle_(std::make_shared<HeadlessBundle>(
          [this](const auto& title, const auto& message, const auto& /*defaultButton*/) {
            alerts_.push_back(title + ": " + message);
          })) {
  plugin_.initWithBundle(bundle_);
  auto host = std::make_shared<TicketCallback>(printer, ticket);
  panel_ = plugin_.PDEPanelsForType(kPrinterModulePanelType, host)->front();
  panel_->panelView();
  panel_->restoreValuesAndReturnError();
  panel_->willShow();
}

void PanelUser::apply(const PanelRequest& request) {
  applyCover(request);
  applyInsert(request);
}

void PanelUser::applyCover(const PanelRequest& request) {
  if (request.cover) chooseCover(*request.cover);
  if (!request.coverMedia && !request.coverSides) return;
  if (panel_->state().covermodeEnableState != 1) {
    throw PrintError::usage(
        translated("There is no cover: --cover-media and --cover-sides need --cover front or "
                   "--cover front-back."));
  }
  if (request.coverMedia) choose(kCoverMode, *request.coverMedia);
  if (request.coverSides) {
    tick({{"front-outside", outlet::CmFrontOutside, kAlwaysOffered},
          {"front-inside", outlet::CmFrontInside, kNeedsTwoSided},
          {"back-outside", outlet::CmBackOutside, kNeedsBoth},
          {"back-inside", outlet::CmBackInside, kNeedsBackCover}},
         *request.coverSides);
  }
}

// Covers begin, and become of another kind, with the front's outside printed, as in a print dialog;
// but those that were left blank stay so.
void PanelUser::chooseCover(const std::string& cover) {
  if (cover == kNone) return switchFeature(kCoverMode, false);
  requireMedia(kCoverMode);
  panel_->updateSettings();
  const PublishingSettings before = panel_->state();
  switchFeature(kCoverMode, true);
  HeadlessRadioMatrix& covers = *bundle_->interface()->radioMatrix(outlet::CmFrontandBackMatrix);
  const std::int64_t column = cover == "front-back" ? 1 : 0;
  // A click on the selected cell would untick its sides.
  const bool isAnother = covers.selectedColumn() != column;
  if (isAnother) covers.click(column);
  const bool begins = before.covermodeEnableState != 1;
  const bool wasBlank =
      before.covermodeValue == kNoSideOfFrontCover || before.covermodeValue == kNoSideOfBothCovers;
  if (begins || (isAnother && !wasBlank)) {
    bundle_->interface()->checkBox(outlet::CmFrontOutside)->click();
  }
}

void PanelUser::applyInsert(const PanelRequest& request) {
  if (request.insert) {
    if (*request.insert != kNone) requireMedia(kPageInsert);
    switchFeature(kPageInsert, *request.insert != kNone);
    if (*request.insert != kNone) typePages(*request.insert);
  }
  if (!request.insertMedia && !request.insertSides) return;
  if (panel_->state().pageinsertEnableState != 1) {
    throw PrintError::usage(
        translated("There are no inserts: --insert-media and --insert-sides need --insert LIST."));
  }
  if (request.insertMedia) choose(kPageInsert, *request.insertMedia);
  if (request.insertSides) {
    tick({{"front", outlet::PiPrintOnFront, kAlwaysOffered},
          {"back", outlet::PiPrintOnBack, kNeedsTwoSided}},
         *request.insertSides);
  }
}

void PanelUser::switchFeature(const PublishingFeature& feature, bool on) {
  HeadlessCheckBox& box = *bundle_->interface()->checkBox(feature.checkBox);
  if ((box.state() == 1) == on) return;
  if (!box.isEnabled()) {
    throw PrintError::refused(
        translated("Covers and inserts are not possible with reverse output order or several pages "
                   "per side. Leave out --reverse and --number-up, or the covers and inserts."));
  }
  box.click();
}

void PanelUser::requireMedia(const PublishingFeature& feature) const {
  if (popUp(feature.popUp).numberOfItems() > 0) return;
  throw PrintError::refused(
      translated("%s offers no media for this: its PPD has no choices for the option %s. Choose a "
                 "printer that supports covers and inserts.",
                 printer_.name(), feature.option));
}

void PanelUser::choose(const PublishingFeature& feature, const std::string& wanted) {
  const std::int64_t index = itemOf(feature, wanted);
  offerAgain(*panel_, PanelControls(*panel_));
  HeadlessPopUpButton& popUp = *bundle_->interface()->popUpButton(feature.popUp);
  if (!popUp.isItemEnabledAtIndex(index)) {
    throw PrintError::refused(
        translated("%s is not available: %s. Choose another medium or change that setting.",
                   shown(popUp.itemTitleAtIndex(index)),
                   reasonAgainstMedia(*panel_, printer_, feature.option, index)));
  }
  popUp.choose(index);
}

const HeadlessPopUpButton& PanelUser::popUp(const char* name) const {
  return *bundle_->interface()->popUpButton(name);
}

// Items stand for the option's choices one by one, in order.
std::int64_t PanelUser::itemOf(const PublishingFeature& feature, const std::string& wanted) const {
  const HeadlessPopUpButton& menu = popUp(feature.popUp);
  std::optional<std::int64_t> byText;
  std::string known;
  const auto choices = printer_.ppd()->choices(feature.option);
  for (std::int64_t index = 0; index < menu.numberOfItems(); ++index) {
    const std::string& choice = choices.at(static_cast<std::size_t>(index)).choice;
    if (choice == wanted) return index;
    if (!byText && menu.itemTitleAtIndex(index) == wanted) byText = index;
    known += "\n  " + shown(choice) + "  " + shown(menu.itemTitleAtIndex(index));
  }
  if (byText) return *byText;
  throw PrintError::refused(translated("%s has no medium \"%s\". The media are:%s", printer_.name(),
                                       shown(wanted), known));
}

void PanelUser::tick(const std::vector<Side>& sides, const std::vector<std::string>& wanted) {
  for (const std::string& name : wanted) {
    const bool known = std::any_of(sides.begin(), sides.end(),
                                   [&name](const Side& side) { return side.name == name; });
    if (!known && name != kNone)
      throw PrintError::usage(translated("There is no side \"%s\".", shown(name)));
  }
  for (const Side& side : sides) {
    HeadlessCheckBox& box = *bundle_->interface()->checkBox(side.checkBox);
    const bool on = contains(wanted, side.name);
    if (on && !box.isEnabled()) {
      throw PrintError::refused(
          translated("The side %s cannot be printed: %s.", side.name, translated(side.condition)));
    }
    if ((box.state() == 1) != on) box.click();
  }
}

void PanelUser::typePages(const std::string& list) {
  HeadlessTextField& field = *bundle_->interface()->textField(outlet::PiPageNum);
  field.type(list);
  if (field.stringValue() != list) {
    throw PrintError::refused(
        translated("%s: %s \"%s\" contains characters other than digits, \"-\" and \",\".",
                   translated(kNumError), translated(kEnterNum), shown(list)));
  }
}

void PanelUser::save() {
  if (panel_->saveValuesAndReturnError()) return;
  std::string message;
  for (const std::string& alert : alerts_)
    message += (message.empty() ? "" : "\n") + alert;
  alerts_.clear();
  throw PrintError::refused(message);
}

}  // namespace publishing
