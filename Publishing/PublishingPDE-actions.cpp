// What the user's clicks do.
#include "Publishing/PublishingPDE.h"

namespace publishing {

void PublishingPDE::changeCmEnableState(CheckBox& sender) {
  state_.covermodeEnableState = sender.state();
  if (state_.covermodeEnableState == 1) {
    state_.transparencyinterleavingEnableState = 0;
    state_.covermodeRadioButtonState = 1;
    CmFrontandBackMatrix->selectCellAtRow(0, 0);
  }
  updateUI();
}

void PublishingPDE::changeTiEnableState(CheckBox& sender) {
  state_.transparencyinterleavingEnableState = sender.state();
  if (state_.transparencyinterleavingEnableState == 1) {
    state_.covermodeEnableState = 0;
    state_.pageinsertEnableState = 0;
  }
  updateUI();
}

void PublishingPDE::changePiEnableState(CheckBox& sender) {
  state_.pageinsertEnableState = sender.state();
  if (state_.pageinsertEnableState == 1) state_.transparencyinterleavingEnableState = 0;
  updateUI();
}

void PublishingPDE::radioButtonF(RadioMatrix& /*sender*/) {
  clearCoverSides();
  CmFrontOutside->setEnabled(true);
  enableOrClear(*CmFrontInside, isTwoSided());
  enableOrClear(*CmBackInside, false);
  enableOrClear(*CmBackOutside, false);
  state_.covermodeRadioButtonState = 1;
}

// One-sided printing can reach the outside of the front cover and the inside of the back cover.
void PublishingPDE::radioButtonFnB(RadioMatrix& /*sender*/) {
  clearCoverSides();
  CmFrontOutside->setEnabled(true);
  CmBackInside->setEnabled(true);
  const bool twoSided = isTwoSided();
  enableOrClear(*CmFrontInside, twoSided);
  enableOrClear(*CmBackOutside, twoSided);
  state_.covermodeRadioButtonState = 2;
}

void PublishingPDE::clearCoverSides() {
  for (CheckBox* side : {&*CmFrontOutside, &*CmFrontInside, &*CmBackOutside, &*CmBackInside}) {
    side->setState(0);
  }
}

// The job's two-sided setting may have changed in another pane of the dialog since the last look.
void PublishingPDE::tabViewDidSelectTabViewItem() {
  updateSettings();
  if (isTwoSided()) {
    state_.transparencyinterleavingEnableState = 0;
    if (state_.covermodeEnableState == 1) {
      CmFrontInside->setEnabled(true);
      if (CmFrontandBackMatrix->selectedColumn() == 1) CmBackOutside->setEnabled(true);
    }
    if (state_.pageinsertEnableState == 1) PiPrintOnBack->setEnabled(true);
  } else {
    enableOrClear(*CmFrontInside, false);
    enableOrClear(*CmBackOutside, false);
    enableOrClear(*PiPrintOnBack, false);
  }
  PiPageNum->setStringValue(state_.pageNumValue.value_or(""));
}

}  // namespace publishing
