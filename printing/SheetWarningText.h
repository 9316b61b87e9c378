// SPDX-License-Identifier: Apache-2.0
// What a job does not get on its sheets, in words for the user.
#pragma once

#include <string>

#include "sheets/SheetWarning.h"

namespace publishing {

// One sentence or two, in the user's language: what is left out, and what would help.
std::string textOf(const SheetWarning& warning);

}  // namespace publishing
