// SPDX-License-Identifier: Apache-2.0
// Building the panel: outlets, actions, pop-ups, tabs, and the model of the printer's PPD.
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "Publishing/CustomTextFieldFormatter.h"
#include "Publishing/PublishingFeatures.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/PublishingPDE.h"
#include "Publishing/ppd/PPDFields.h"

namespace publishing {

std::vector<OutletBinding> PublishingPDE::outlets() {
  const auto bound = [](const char* name, auto& control) { return OutletBinding{name, &control}; };
  return {
      bound(outlet::pdeView, pdeView),
      bound(outlet::tabView, tabView),
      bound(outlet::CmCheckBox, CmCheckBox),
      bound(outlet::CmFrontandBackMatrix, CmFrontandBackMatrix),
      bound(outlet::CmMediaType, CmMediaType),
      bound(outlet::CmFrontOutside, CmFrontOutside),
      bound(outlet::CmFrontInside, CmFrontInside),
      bound(outlet::CmBackOutside, CmBackOutside),
      bound(outlet::CmBackInside, CmBackInside),
      bound(outlet::TiCheckBox, TiCheckBox),
      bound(outlet::TiMediaType, TiMediaType),
      bound(outlet::TiPrintOnBack, TiPrintOnBack),
      bound(outlet::PiCheckBox, PiCheckBox),
      bound(outlet::PiMediaType, PiMediaType),
      bound(outlet::PiPrintOnBack, PiPrintOnBack),
      bound(outlet::PiPrintOnFront, PiPrintOnFront),
      bound(outlet::PiPageNum, PiPageNum),
  };
}

std::vector<ActionBinding> PublishingPDE::actions() {
  return {
      {action::changeCmEnableState, [this](CheckBox& sender) { changeCmEnableState(sender); }},
      {action::changeTiEnableState, [this](CheckBox& sender) { changeTiEnableState(sender); }},
      {action::changePiEnableState, [this](CheckBox& sender) { changePiEnableState(sender); }},
      {action::radioButtonF, [this](RadioMatrix& sender) { radioButtonF(sender); }},
      {action::radioButtonFnB, [this](RadioMatrix& sender) { radioButtonFnB(sender); }},
      {action::tabViewDidSelectTabViewItem, [this] { tabViewDidSelectTabViewItem(); }},
  };
}

void PublishingPDE::awakeFromNib() {
  fillPopUp(*CmMediaType, cCoverMediaType);
  CmFrontandBackMatrix->setAllowsEmptySelection(true);
  fillPopUp(*PiMediaType, cPageMediaType);

  if (state_.restoreFlag) {
    state_.restoreFlag = false;
    restoreValuesAndReturnError();
  }
  if (initialized) return;
  auto formatter = std::make_shared<CustomTextFieldFormatter>();
  formatter->allowsonlyNumericsAndSpecialCharacters(true);
  PiPageNum->setFormatter(std::move(formatter));
  removeTransparencyTab();
  initialized = true;
}

// A choice whose text is not valid in the PPD's encoding is left out, which shifts the later ones.
void PublishingPDE::fillPopUp(PopUpButton& popUp, const char* option) {
  ppd_file_t* ppd = currentPPD();
  const PPDEncoding encoding = encodingOfPPD(ppd);
  std::vector<std::string> titles;
  for (const ppd_choice_t& choice : choicesOf(ppdFindOption(ppd, option))) {
    if (auto title = stringFromPPD(choice.text, encoding)) titles.push_back(std::move(*title));
  }
  popUp.removeAllItems();
  popUp.setAutoenablesItems(false);
  popUp.addItemsWithTitles(titles);
  popUp.selectItemAtIndex(0);
}

// Transparency Interleaving was withdrawn from the panel but not from the interface description. A
// description with another number of tabs keeps them all.
void PublishingPDE::removeTransparencyTab() {
  if (tabView->numberOfTabViewItems() == 3) tabView->removeTabViewItemAtIndex(1);
}

void PublishingPDE::initializeUI() {
  panelView();
  ppdFile = currentPPD();
  if (ppdFile == nullptr) return;
  ppdOption = ppdFindOption(ppdFile, kTray);
  ppdInfo = std::make_unique<PPDInfo>();
  ppdInfo->loadPPDFile(ppdFile);
  ppdInfo->loadConstraintsOnlyFor({kTray}, ppdFile);
}

// The media options end with one choice for each tray, in the order of the trays. Counted from the
// end, because the number of other media differs between the two.
std::int64_t PublishingPDE::firstTrayItem(const char* mediaOption) const {
  ppd_file_t* ppd = currentPPD();
  return std::ssize(choicesOf(ppdFindOption(ppd, mediaOption))) -
         std::ssize(choicesOf(ppdFindOption(ppd, cInputSlot)));
}

std::vector<std::string> PublishingPDE::trays() const {
  ppd_file_t* ppd = currentPPD();
  const PPDEncoding encoding = encodingOfPPD(ppd);
  std::vector<std::string> keywords;
  for (const ppd_choice_t& slot : choicesOf(ppdFindOption(ppd, cInputSlot))) {
    if (auto tray = stringFromPPD(slot.choice, encoding)) keywords.push_back(std::move(*tray));
  }
  return keywords;
}

// A tray that is listed twice moves the item of its first entry only. The items may lie outside the
// pop-ups when the PPD has more trays than media; the pop-ups ignore those.
void PublishingPDE::updateConstraints() {
  if (!initialized) {
    initialized = true;
    initializeUI();
  }
  shownTrays = trays();
  const std::int64_t firstCoverItem = firstTrayItem(cCoverMediaType);
  const std::int64_t firstPageItem = firstTrayItem(cPageMediaType);
  std::unordered_map<std::string_view, std::int64_t> firstEntries;
  for (const std::string& tray : shownTrays) {
    const bool allowed = ppdInfo != nullptr && ppdInfo->willAllowChangeOfOption(kTray, tray);
    const std::int64_t entry = &tray - shownTrays.data();
    const std::int64_t index = firstEntries.emplace(tray, entry).first->second;
    CmMediaType->setItemEnabledAtIndex(firstCoverItem + index, allowed);
    PiMediaType->setItemEnabledAtIndex(firstPageItem + index, allowed);
  }
}

std::vector<PPDInfo::MarkedChoice> PublishingPDE::choicesForbiddingMedia(const char* mediaOption,
                                                                         std::int64_t index) const {
  const std::int64_t tray = index - firstTrayItem(mediaOption);
  if (ppdInfo == nullptr || tray < 0 || tray >= std::ssize(shownTrays)) return {};
  return ppdInfo->choicesForbidding(kTray, shownTrays[static_cast<std::size_t>(tray)]);
}

}  // namespace publishing
