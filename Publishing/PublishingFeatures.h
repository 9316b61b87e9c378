// SPDX-License-Identifier: Apache-2.0
// The panel's features and controls by name: the one table that the panel, its hosts and every
// shell use. Interface descriptions use the same names.
#pragma once

#include <span>

#include "Publishing/PublishingKeys.h"

namespace publishing {

namespace outlet {

inline constexpr const char* pdeView = "pdeView";
inline constexpr const char* tabView = "tabView";

inline constexpr const char* CmCheckBox = "CmCheckBox";
inline constexpr const char* CmFrontandBackMatrix = "CmFrontandBackMatrix";
inline constexpr const char* CmMediaType = "CmMediaType";
inline constexpr const char* CmFrontOutside = "CmFrontOutside";
inline constexpr const char* CmFrontInside = "CmFrontInside";
inline constexpr const char* CmBackOutside = "CmBackOutside";
inline constexpr const char* CmBackInside = "CmBackInside";

inline constexpr const char* TiCheckBox = "TiCheckBox";
inline constexpr const char* TiMediaType = "TiMediaType";
inline constexpr const char* TiPrintOnBack = "TiPrintOnBack";

inline constexpr const char* PiCheckBox = "PiCheckBox";
inline constexpr const char* PiMediaType = "PiMediaType";
inline constexpr const char* PiPrintOnBack = "PiPrintOnBack";
inline constexpr const char* PiPrintOnFront = "PiPrintOnFront";
inline constexpr const char* PiPageNum = "PiPageNum";

}  // namespace outlet

namespace action {

inline constexpr const char* changeCmEnableState = "changeCmEnableState";
inline constexpr const char* changeTiEnableState = "changeTiEnableState";
inline constexpr const char* changePiEnableState = "changePiEnableState";
inline constexpr const char* radioButtonF = "radioButtonF";
inline constexpr const char* radioButtonFnB = "radioButtonFnB";
inline constexpr const char* tabViewDidSelectTabViewItem = "tabViewDidSelectTabViewItem";

}  // namespace action

// The print-settings keys that the panel owns, by feature.
inline constexpr const char* kCoverModeKeys[] = {kCoverModeState, kCoverModeValue,
                                                 kCovermodeRadioButtonState, kCmIndex, kUnspecifed};
inline constexpr const char* kPageInsertKeys[] = {kPageinsertState, kPageinsertValue, kPiIndex,
                                                  kPageinsertNums};

// A feature that the panel offers. Its media are the choices of a PPD option.
struct PublishingFeature {
  const char* option;                 // the PPD option's keyword
  const char* stateKey;               // kStoredOn or kStoredOff in the job's print settings
  const char* indexKey;               // the medium's index there
  std::span<const char* const> keys;  // these two and all others of the feature
  const char* checkBox;               // outlet of the box that switches it
  const char* popUp;                  // outlet of the menu of its media
  const char* action;                 // what the check box sends
};

inline constexpr PublishingFeature kCoverMode = {cCoverMediaType,
                                                 kCoverModeState,
                                                 kCmIndex,
                                                 kCoverModeKeys,
                                                 outlet::CmCheckBox,
                                                 outlet::CmMediaType,
                                                 action::changeCmEnableState};

inline constexpr PublishingFeature kPageInsert = {
    cPageMediaType,      kPageinsertState,           kPiIndex, kPageInsertKeys, outlet::PiCheckBox,
    outlet::PiMediaType, action::changePiEnableState};

inline constexpr PublishingFeature kFeatures[] = {kCoverMode, kPageInsert};

}  // namespace publishing
