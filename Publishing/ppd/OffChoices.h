// SPDX-License-Identifier: Apache-2.0
// Which choices switch an option off. A constraint that names an option without a choice means
// every choice but these. There are two readings of it, which is why both stand here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace publishing {

// libcups's reading, for jobs: "None", "Off" and "False" in any case.
bool switchesOff(std::string_view choice);

// The panel's reading, for its menus: an option's choices without the first "None" and the first
// "False", spelled exactly so. "Off" stays, and so does a second "None".
std::vector<std::string> withoutOffChoices(std::vector<std::string> choices);

}  // namespace publishing
