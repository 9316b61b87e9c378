// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// The name by which the panel asks for its help book.
inline constexpr const char* kHelpBook = "Publishing Help";

// The start page of the help book in the folder: in the user's language, else in English. Empty
// when there is none.
std::string helpStartPage(const std::string& folder);

}  // namespace publishing
