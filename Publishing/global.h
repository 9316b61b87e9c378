// The texts that a user reads, in English. Each is also its own key in the translations.
#pragma once

namespace publishing {

inline constexpr const char* kOK = "OK";
inline constexpr const char* kOn = "On";
inline constexpr const char* kOff = "Off";

inline constexpr const char* kPublishingPanelNameKey = "Publishing";
inline constexpr const char* kCovermodeStatus = "Cover Mode";
inline constexpr const char* kTransparencyinterleavingStatus = "Transparency Interleaving";
inline constexpr const char* kPageinsertStatus = "Page Insert";

inline constexpr const char* kNumError = "Page Number Error";
inline constexpr const char* kEnterNum = "Please type a page range.";
inline constexpr const char* kEnterNum2 = "Please enter your specified pages.";
inline constexpr const char* kExceedLimit = "You can only insert up to 10 pages.";
inline constexpr const char* kExceedBoundary = "You can only enter page numbers between 2 and 511.";
inline constexpr const char* kExceedDuplexBoundary =
    "You can only enter page numbers between 3 and 511.";
inline constexpr const char* kRangeErr =
    "The ending page number of range should be bigger than the beginning page number.";
inline constexpr const char* kUdfError = "Undefined Page Insert Error";
inline constexpr const char* kUndefined = "Page insert caused undefined error.";

}  // namespace publishing
