// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "sheets/SheetPicture.h"

namespace publishing {

// The picture as a standalone SVG 1.1 document in UTF-8, the same for the same picture on every
// machine. Texts may hold anything: they are escaped; what is no character of XML or no UTF-8
// becomes U+FFFD. `title` is for screen readers and may be empty.
std::string writePictureSVG(const SheetPicture& picture, const std::string& title);

}  // namespace publishing
