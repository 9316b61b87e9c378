// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "printing/JobSheets.h"
#include "sheets/SheetPicture.h"

namespace publishing {

// What a picture shows in one place, in the user's language: "Sheet 3: Thick, front: page 5, back:
// blank". `item` is one of pictureOf(job, ...).
std::string wordsOf(const JobSheets& job, const PictureItem& item);

}  // namespace publishing
