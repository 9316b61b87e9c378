// Taking the state from the job's print settings: what the controls show is set in them, and
// updateUI reads it back into the state.
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

void PublishingPDE::restoreCoverMode() {
  state_.covermodeEnableState = isPrintSettingOn(kCoverModeState) ? 1 : 0;
  if (state_.covermodeEnableState == 0) return;
  state_.restoreFlag = true;
  state_.transparencyinterleavingEnableState = 0;

  if (!readPrintSetting(kCoverModeValue, state_.covermodeValue)) return;
  tickCoverSides();
  restoreIndex(kCmIndex, *CmMediaType);
  if (readPrintSetting(kCovermodeRadioButtonState, state_.covermodeRadioButtonState)) {
    selectMatrixCell();
  }
}

void PublishingPDE::restorePageInsert() {
  state_.pageinsertEnableState = isPrintSettingOn(kPageinsertState) ? 1 : 0;
  if (state_.pageinsertEnableState == 0) return;
  state_.restoreFlag = true;
  state_.transparencyinterleavingEnableState = 0;

  if (readPrintSetting(kPageinsertValue, state_.pageinsertValue)) {
    tickInsertSides();
  }
  restoreIndex(kPiIndex, *PiMediaType);
}

void PublishingPDE::restoreIndex(const char* key, PopUpButton& popUp) {
  if (readPrintSetting(key, state_.indexTempString)) {
    popUp.selectItemAtIndex(intValue(*state_.indexTempString));
  }
}

void PublishingPDE::restorePageNumbers() {
  if (readPrintSetting(kPageinsertNums, state_.pageNumValue)) {
    PiPageNum->setStringValue(*state_.pageNumValue);
  }
}

}  // namespace publishing
