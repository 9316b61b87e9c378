// SPDX-License-Identifier: Apache-2.0
// The texts that a user reads, in English. Each is also its own key in the translations.
#pragma once

// Marks a text for the template of the translations, po/publishing.pot.
#define PUBLISHING_TEXT(english) english

namespace publishing {

inline constexpr const char* kOK = PUBLISHING_TEXT("OK");
inline constexpr const char* kOn = PUBLISHING_TEXT("On");
inline constexpr const char* kOff = PUBLISHING_TEXT("Off");

inline constexpr const char* kPublishingPanelNameKey = PUBLISHING_TEXT("Publishing");
inline constexpr const char* kCovermodeStatus = PUBLISHING_TEXT("Cover Mode");
inline constexpr const char* kTransparencyinterleavingStatus =
    PUBLISHING_TEXT("Transparency Interleaving");
inline constexpr const char* kPageinsertStatus = PUBLISHING_TEXT("Page Insert");

inline constexpr const char* kNumError = PUBLISHING_TEXT("Page Number Error");
inline constexpr const char* kEnterNum = PUBLISHING_TEXT("Please type a page range.");
inline constexpr const char* kEnterNum2 = PUBLISHING_TEXT("Please enter your specified pages.");
inline constexpr const char* kExceedLimit = PUBLISHING_TEXT("You can only insert up to 10 pages.");
inline constexpr const char* kExceedBoundary =
    PUBLISHING_TEXT("You can only enter page numbers between 2 and 511.");
inline constexpr const char* kExceedDuplexBoundary =
    PUBLISHING_TEXT("You can only enter page numbers between 3 and 511.");
inline constexpr const char* kRangeErr = PUBLISHING_TEXT(
    "The ending page number of range should be bigger than the beginning page number.");
inline constexpr const char* kUdfError = PUBLISHING_TEXT("Undefined Page Insert Error");
inline constexpr const char* kUndefined = PUBLISHING_TEXT("Page insert caused undefined error.");

}  // namespace publishing
