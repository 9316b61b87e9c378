// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// Why the field of the page list did not take what was typed or pasted, for the user.
std::string refusalMessage(const std::string& typed);

}  // namespace publishing
