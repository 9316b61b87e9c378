// SPDX-License-Identifier: Apache-2.0
// Taking the state from the job's print settings.
#include "Publishing/NSStringMyExtension.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/PublishingPDE.h"

namespace publishing {

bool PublishingPDE::restoreValuesAndReturnError() {
  removeTransparencyTab();
  restoreCoverMode();
  restorePageInsert();
  // Also when Page Insert is off: the list outlives switching the feature off.
  restorePageNumbers();
  updateUI();
  return true;
}

// The check box itself is left to updateUI.
void PublishingPDE::restoreCoverMode() {
  state_.covermodeEnableState = isPrintSettingOn(kCoverModeState) ? 1 : 0;
  state_.covermodeRadioButtonState = 0;
  if (state_.covermodeEnableState == 0) return;
  state_.restoreFlag = true;
  state_.transparencyinterleavingEnableState = 0;

  if (!readPrintSetting(kCoverModeValue, state_.covermodeValue)) return;
  tickCoverSides();
  readPrintSetting(kCoverMediaType, state_.cmmediatype);
  if (readPrintSetting(kCmIndex, state_.indexTempString)) {
    state_.cmIndex = intValue(*state_.indexTempString);
    CmMediaType->selectItemAtIndex(state_.cmIndex);
  }
  if (readPrintSetting(kCovermodeRadioButtonState, state_.covermodeRadioButtonState)) {
    selectMatrixCell();
  }
}

void PublishingPDE::restorePageInsert() {
  state_.pageinsertEnableState = isPrintSettingOn(kPageinsertState) ? 1 : 0;
  if (state_.pageinsertEnableState == 0) return;
  state_.restoreFlag = true;
  state_.transparencyinterleavingEnableState = 0;

  restorePageNumbers();
  PiCheckBox->setState(1);
  if (readPrintSetting(kPageinsertValue, state_.pageinsertValue)) {
    tickInsertSides(state_.pageinsertValue);
  }
  readPrintSetting(kPageMediaType, state_.pimediatype);
  if (readPrintSetting(kPiIndex, state_.indexTempString)) {
    state_.piIndex = intValue(*state_.indexTempString);
    PiMediaType->selectItemAtIndex(state_.piIndex);
  }
}

void PublishingPDE::restorePageNumbers() {
  if (readPrintSetting(kPageinsertNums, state_.pageNumValue)) {
    PiPageNum->setStringValue(*state_.pageNumValue);
  }
}

}  // namespace publishing
