// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// Looks at a PPD with covers through the eyes of libcups, which the panel and the print server
// have: it must open, and its cover and insert media must end with the trays, in their order.
// `name` stands for the PPD in messages. Throws PrintError: Trouble when it cannot be opened,
// Refused when the media are not as they must be.
void checkCovers(const std::string& ppd, const std::string& name);

}  // namespace publishing
