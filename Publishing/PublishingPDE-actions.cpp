// SPDX-License-Identifier: Apache-2.0
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
  clear({*CmFrontOutside, *CmFrontInside, *CmBackOutside, *CmBackInside});
  CmFrontOutside->setEnabled(true);
  if (isTwoSided()) {
    CmFrontInside->setEnabled(true);
  } else {
    disable({*CmFrontInside});
    clear({*CmFrontInside});
  }
  disable({*CmBackInside, *CmBackOutside});
  clear({*CmBackOutside, *CmBackInside});
  state_.covermodeRadioButtonState = 1;
}

// One-sided printing can reach the outside of the front cover and the inside of the back cover.
void PublishingPDE::radioButtonFnB(RadioMatrix& /*sender*/) {
  clear({*CmFrontOutside, *CmFrontInside, *CmBackOutside, *CmBackInside});
  CmFrontOutside->setEnabled(true);
  CmBackInside->setEnabled(true);
  if (isTwoSided()) {
    CmFrontInside->setEnabled(true);
    CmBackOutside->setEnabled(true);
  } else {
    disable({*CmFrontInside, *CmBackOutside});
    clear({*CmFrontInside, *CmBackOutside});
  }
  state_.covermodeRadioButtonState = 2;
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
    disable({*CmFrontInside, *CmBackOutside});
    clear({*CmFrontInside, *CmBackOutside});
    disable({*PiPrintOnBack});
    clear({*PiPrintOnBack});
  }
  PiPageNum->setStringValue(state_.pageNumValue.value_or(""));
}

}  // namespace publishing
