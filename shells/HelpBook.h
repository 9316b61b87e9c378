// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace publishing {

// The name by which the panel asks for its help book.
inline constexpr const char* kHelpBook = "Publishing Help";

// The start page of the help book in the folder: in the user's language, else in English. Empty
// when there is none.
std::string helpStartPage(const std::string& folder);

// The part of the start page that is about one of the panel's tabs, as the end of an address:
// "#covers". Empty for a tab that is unknown.
std::string helpPartOfTab(std::int64_t tab);

}  // namespace publishing
