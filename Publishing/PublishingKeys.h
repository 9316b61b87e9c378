// SPDX-License-Identifier: Apache-2.0
// The names that the panel shares with the printer's PPD and with the job's print settings.
#pragma once

namespace publishing {

// PPD option keywords; those that begin with c are handed to libcups.
inline constexpr const char* cCoverMediaType = "CoverMediaType";
inline constexpr const char* cTransMediaType = "TransMediaType";
inline constexpr const char* cPageMediaType = "PageMediaType";
inline constexpr const char* cInputSlot = "InputSlot";
inline constexpr const char* kTray = "InputSlot";

// A cover choice with this word in its keyword leaves the cover's medium to the printer.
inline constexpr const char* kPrnDef = "PrnDef";

// Print-settings keys of the panel.
inline constexpr const char* kCoverModeState = "VtCoverModeState";
inline constexpr const char* kCoverModeValue = "VtCoverModeValue";
inline constexpr const char* kCovermodeRadioButtonState = "VtCovermodeRadioButtonState";
inline constexpr const char* kCmIndex = "VtCmIndex";
inline constexpr const char* kUnspecifed = "VtUnspecified";
inline constexpr const char* kPageinsertState = "VtPageinsertState";
inline constexpr const char* kPageinsertValue = "VtPageinsertValue";
inline constexpr const char* kPiIndex = "VtPiIndex";
inline constexpr const char* kPageinsertNums = "VtPageinsertNums";

// The values of kCoverModeState and kPageinsertState, in every language.
inline constexpr const char* kStoredOn = "On";
inline constexpr const char* kStoredOff = "Off";

// Print-settings keys of others that the panel reads.
inline constexpr const char* kCoverMediaType = "CoverMediaType";
inline constexpr const char* kPageMediaType = "PageMediaType";
inline constexpr const char* kOutputOrder = "OutputOrder";
inline constexpr const char* kNup = "com.apple.print.PrintSettings.PMLayoutNUp";

}  // namespace publishing
