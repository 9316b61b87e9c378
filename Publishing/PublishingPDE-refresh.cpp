// SPDX-License-Identifier: Apache-2.0
// Keeping the state and the controls in step.
#include <utility>

#include "Publishing/NSStringMyExtension.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/PublishingPDE.h"

namespace publishing {
namespace {

constexpr std::int64_t kFrontCoverColumn = 0;
constexpr std::int64_t kBothCoversColumn = 1;

int stateOfBit(std::int64_t value, std::int64_t bit) {
  return (value & bit) != 0 ? 1 : 0;
}

void selectFirstItemIfNone(PopUpButton& popUp) {
  if (popUp.indexOfSelectedItem() < 0) popUp.selectItemAtIndex(0);
}

}  // namespace

void PublishingPDE::updateSettings() {
  state_.pageinsertValue = (PiPrintOnFront->state() != 0 ? kPrintOnFront : 0) +
                           (PiPrintOnBack->state() != 0 ? kPrintOnBack : 0);
  state_.covermodeValue = coverValueFromControls();
  state_.covermodeRadioButtonState = CmFrontandBackMatrix->selectedColumn() + 1;
  state_.pageNumValue = PiPageNum->stringValue();

  selectFirstItemIfNone(*CmMediaType);
  selectFirstItemIfNone(*PiMediaType);
  state_.cmmediatype = CmMediaType->titleOfSelectedItem();
  state_.cmIndex = CmMediaType->indexOfSelectedItem();
  state_.pimediatype = PiMediaType->titleOfSelectedItem();
  state_.piIndex = PiMediaType->indexOfSelectedItem();
}

std::int64_t PublishingPDE::coverValueFromControls() const {
  const std::pair<const CheckBox&, std::int64_t> sides[] = {{*CmFrontOutside, kFrontOutside},
                                                            {*CmFrontInside, kFrontInside},
                                                            {*CmBackOutside, kBackOutside},
                                                            {*CmBackInside, kBackInside}};
  bool anyTouched = false;
  std::int64_t value = 0;
  for (const auto& [box, side] : sides) {
    anyTouched = anyTouched || box.state() != 0;
    if (box.state() == 1) value += side;
  }
  if (anyTouched) return value;
  switch (CmFrontandBackMatrix->selectedColumn()) {
    case kFrontCoverColumn:
      return kNoSideOfFrontCover;
    case kBothCoversColumn:
      return kNoSideOfBothCovers;
    default:
      return 0;
  }
}

void PublishingPDE::updateUI() {
  updateSettings();
  removeTransparencyTab();
  applyLayoutRule();
  const bool twoSided = isTwoSided();
  if (state_.covermodeEnableState == 1) {
    showCoverMode(twoSided);
  } else {
    showCoverModeOff();
  }
  if (state_.pageinsertEnableState == 1) {
    showPageInsert(twoSided);
  } else {
    showPageInsertOff();
  }
  updateConstraints();
}

// Covers and inserts need the pages one by one and in order.
void PublishingPDE::applyLayoutRule() {
  const bool nup = isNup();
  const bool reversed = isReversed();
  const bool unavailable = nup || reversed;
  CmCheckBox->setEnabled(!unavailable);
  PiCheckBox->setEnabled(!unavailable);
  if (!unavailable) return;
  state_.covermodeRadioButtonState = -1;
  state_.covermodeValue = 0;
  state_.covermodeEnableState = 0;
  state_.pageinsertValue = 0;
  state_.pageinsertEnableState = 0;
}

// The host is asked for the two-sided mode once more after the sides were shown: reading the
// settings in between may change what it answers.
void PublishingPDE::showCoverMode(bool twoSided) {
  CmCheckBox->setState(1);
  CmMediaType->setEnabled(true);
  CmFrontandBackMatrix->setEnabled(true);
  CmFrontOutside->setEnabled(true);
  CmFrontInside->setEnabled(twoSided);
  tickCoverSides();
  selectMatrixCell();
  if (CmFrontandBackMatrix->selectedColumn() == kFrontCoverColumn) {
    disable({*CmBackInside, *CmBackOutside});
    clear({*CmBackOutside, *CmBackInside});
  } else {
    CmBackInside->setEnabled(true);
    CmBackOutside->setEnabled(twoSided);
  }

  readPrintSetting(kCoverMediaType, state_.cmmediatype);
  if (readPrintSetting(kCmIndex, state_.indexTempString)) {
    state_.cmIndex = intValue(*state_.indexTempString);
    CmMediaType->selectItemAtIndex(state_.cmIndex);
  } else if (state_.pageinsertEnableState != 1) {
    PiMediaType->selectItemAtIndex(0);  // crosswise on purpose, mirrored in showPageInsert
  }
  if (!isTwoSided()) {
    disable({*CmFrontInside, *CmBackOutside});
    clear({*CmBackOutside, *CmFrontInside});
  }
}

void PublishingPDE::showCoverModeOff() {
  CmCheckBox->setState(0);
  CmMediaType->setEnabled(false);
  CmMediaType->setState(0);
  CmFrontandBackMatrix->setEnabled(false);
  CmFrontandBackMatrix->deselectAllCells();
  disable({*CmFrontInside, *CmFrontOutside, *CmBackInside, *CmBackOutside});
  clear({*CmFrontInside, *CmFrontOutside, *CmBackInside, *CmBackOutside});
  CmMediaType->selectItemAtIndex(0);
}

void PublishingPDE::showPageInsert(bool twoSided) {
  PiCheckBox->setState(1);
  PiPageNum->setEnabled(true);
  PiMediaType->setEnabled(true);
  PiPrintOnFront->setEnabled(true);
  PiPrintOnBack->setEnabled(twoSided);
  const bool stillTwoSided = isTwoSided();
  if (!stillTwoSided) {
    disable({*PiPrintOnBack});
    clear({*PiPrintOnBack});
  }
  PiPageNum->setStringValue(state_.pageNumValue.value_or(""));
  if (readPrintSetting(kPageinsertValue, state_.pageinsertValue)) {
    const std::int64_t sides = stillTwoSided ? kPrintOnFront | kPrintOnBack : kPrintOnFront;
    tickInsertSides(state_.pageinsertValue & sides);
  }

  readPrintSetting(kPageMediaType, state_.pimediatype);
  if (readPrintSetting(kPiIndex, state_.indexTempString)) {
    state_.piIndex = intValue(*state_.indexTempString);
    PiMediaType->selectItemAtIndex(state_.piIndex);
  } else if (state_.covermodeEnableState != 1) {
    CmMediaType->selectItemAtIndex(0);
  }
}

void PublishingPDE::showPageInsertOff() {
  PiCheckBox->setState(0);
  PiPageNum->setEnabled(false);
  PiPageNum->setStringValue("");
  PiMediaType->setEnabled(false);
  disable({*PiPrintOnBack, *PiPrintOnFront});
  PiMediaType->setState(0);
  clear({*PiPrintOnBack, *PiPrintOnFront});
  PiMediaType->selectItemAtIndex(0);
}

void PublishingPDE::tickCoverSides() {
  CmFrontOutside->setState(stateOfBit(state_.covermodeValue, kFrontOutside));
  CmFrontInside->setState(stateOfBit(state_.covermodeValue, kFrontInside));
  CmBackOutside->setState(stateOfBit(state_.covermodeValue, kBackOutside));
  CmBackInside->setState(stateOfBit(state_.covermodeValue, kBackInside));
}

void PublishingPDE::tickInsertSides(std::int64_t sides) {
  PiPrintOnFront->setState(stateOfBit(sides, kPrintOnFront));
  PiPrintOnBack->setState(stateOfBit(sides, kPrintOnBack));
}

void PublishingPDE::selectMatrixCell() {
  const std::int64_t radioState = state_.covermodeRadioButtonState;
  const bool chosen = radioState == 1 || radioState == 2;
  CmFrontandBackMatrix->selectCellAtRow(0, chosen ? radioState - 1 : -1);
}

void PublishingPDE::disable(Boxes boxes) {
  for (CheckBox& box : boxes)
    box.setEnabled(false);
}

void PublishingPDE::clear(Boxes boxes) {
  for (CheckBox& box : boxes)
    box.setState(0);
}

}  // namespace publishing
