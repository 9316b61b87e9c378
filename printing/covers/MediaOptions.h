// SPDX-License-Identifier: Apache-2.0
// The trays and paper types of a PPD, and the choices that covers and inserts get from them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "printing/covers/PPDText.h"

namespace publishing {

// cInputSlot has the trays, this option the paper types.
inline constexpr const char* kTypeOption = "MediaType";

// A choice as the PPD has it; bytes as they stand there.
struct MediaChoice {
  std::string_view keyword;
  std::string_view text;
  std::string_view code;
};

struct MediaOption {
  std::string_view keyword;  // cInputSlot or kTypeOption
  bool beforeJob = false;    // a JCL option: said to the printer before the job begins
  std::vector<MediaChoice> choices;
  std::size_t end = 0;  // behind its last line; 0 when the PPD does not have the option

  // Whether there is something to choose: at least two choices whose code differs.
  [[nodiscard]] bool switches() const;
};

struct PPDMedia {
  MediaOption types;
  MediaOption trays;
};

// Throws PrintError (Refused) when the PPD has one of the options twice.
PPDMedia mediaOf(const std::vector<PPDStatement>& statements);

// A choice of CoverMediaType and PageMediaType, and what it stands for.
struct CoverChoice {
  std::string keyword;
  std::string text;
  const MediaOption* option;
  const MediaChoice* choice;
};

// One choice for every type, when they can be switched, and one for every tray, in the PPD's order.
// The trays come last because the panel counts them from the end. A keyword that both options have,
// or that means something of its own in a PPD or a job, gets the prefix "Type." or "Slot."; case
// makes no difference to PPD readers. The media must outlive the result. Throws PrintError
// (Refused) when a keyword is too long for its prefix.
std::vector<CoverChoice> coverChoices(const PPDMedia& media, bool withTypes);

}  // namespace publishing
