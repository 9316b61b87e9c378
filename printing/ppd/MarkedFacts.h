// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include "sheets/SheetOrder.h"

namespace publishing {

// What a PPD, with a job's choices marked in it, says about the job's sheets.
PrinterFacts markedFacts(ppd_file_t* ppd);

}  // namespace publishing
