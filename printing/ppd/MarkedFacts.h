// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include <cups/ppd.h>

#include "sheets/SheetOrder.h"

namespace publishing {

// What a PPD, with a job's choices marked in it, says about the job's sheets.
PrinterFacts markedFacts(ppd_file_t* ppd);

// Whether the value of a switch in a PPD turns it on.
bool meansYes(std::string_view value);

}  // namespace publishing
