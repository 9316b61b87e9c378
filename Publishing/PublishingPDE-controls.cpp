// Building the panel: outlets, actions, pop-ups, tabs, and the model of the printer's PPD.
#include <algorithm>
#include <iterator>

#include "Publishing/CustomTextFieldFormatter.h"
#include "Publishing/PPDFields.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/PublishingPDE.h"

namespace publishing {

std::vector<OutletBinding> PublishingPDE::outlets() {
  return {
      {"pdeView", &pdeView},
      {"tabView", &tabView},
      {"CmCheckBox", &CmCheckBox},
      {"CmFrontandBackMatrix", &CmFrontandBackMatrix},
      {"CmMediaType", &CmMediaType},
      {"CmFrontOutside", &CmFrontOutside},
      {"CmFrontInside", &CmFrontInside},
      {"CmBackOutside", &CmBackOutside},
      {"CmBackInside", &CmBackInside},
      {"TiCheckBox", &TiCheckBox},
      {"TiMediaType", &TiMediaType},
      {"TiPrintOnBack", &TiPrintOnBack},
      {"PiCheckBox", &PiCheckBox},
      {"PiMediaType", &PiMediaType},
      {"PiPrintOnBack", &PiPrintOnBack},
      {"PiPrintOnFront", &PiPrintOnFront},
      {"PiPageNum", &PiPageNum},
  };
}

std::vector<ActionBinding> PublishingPDE::actions() {
  return {
      {"changeCmEnableState", [this](CheckBox& sender) { changeCmEnableState(sender); }},
      {"changeTiEnableState", [this](CheckBox& sender) { changeTiEnableState(sender); }},
      {"changePiEnableState", [this](CheckBox& sender) { changePiEnableState(sender); }},
      {"radioButtonF", [this](RadioMatrix& sender) { radioButtonF(sender); }},
      {"radioButtonFnB", [this](RadioMatrix& sender) { radioButtonFnB(sender); }},
      {"tabViewDidSelectTabViewItem", [this] { tabViewDidSelectTabViewItem(); }},
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
  initialized = true;
  auto formatter = std::make_shared<CustomTextFieldFormatter>();
  formatter->allowsonlyNumericsAndSpecialCharacters(true);
  PiPageNum->setFormatter(std::move(formatter));
  removeTransparencyTab();
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
void PublishingPDE::updateConstraints() {
  if (!initialized) {
    initialized = true;
    initializeUI();
  }
  ppd_file_t* ppd = currentPPD();
  const PPDEncoding encoding = encodingOfPPD(ppd);
  const auto slots = choicesOf(ppdFindOption(ppd, cInputSlot));
  std::vector<std::string> trays;
  for (const ppd_choice_t& slot : slots) {
    if (auto tray = stringFromPPD(slot.choice, encoding)) trays.push_back(std::move(*tray));
  }
  const auto offset = [ppd, &slots](const char* option) {
    return std::ssize(choicesOf(ppdFindOption(ppd, option))) - std::ssize(slots);
  };
  const std::int64_t coverOffset = offset(cCoverMediaType);
  const std::int64_t pageOffset = offset(cPageMediaType);
  for (const std::string& tray : trays) {
    const bool allowed = ppdInfo != nullptr && ppdInfo->willAllowChangeOfOption(kTray, tray);
    const auto index = std::find(trays.begin(), trays.end(), tray) - trays.begin();
    CmMediaType->setItemEnabledAtIndex(coverOffset + index, allowed);
    PiMediaType->setItemEnabledAtIndex(pageOffset + index, allowed);
  }
}

}  // namespace publishing
