// SPDX-License-Identifier: Apache-2.0
// The option by which a PPD prints on both sides.
#pragma once

#include <optional>
#include <string_view>

#include <cups/ppd.h>

#include "printing/JobTicket.h"

namespace publishing {

// The keywords under which PPDs have it.
inline constexpr const char* kDuplexOptions[] = {"Duplex", "EFDuplex", "EFDuplexing", "KD03Duplex",
                                                 "JCLDuplex"};

// Whether it is one of them.
bool isDuplexOption(std::string_view name);

// Its marked choice; null without one.
const ppd_choice_t* markedDuplexChoice(ppd_file_t* ppd);

// The sides that the marked choice means; nothing when it is none of those that are known.
std::optional<Sides> markedSidesOf(ppd_file_t* ppd);

}  // namespace publishing
