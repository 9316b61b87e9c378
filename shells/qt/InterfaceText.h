// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace publishing {

// The interface description of the panel, compiled in.
extern const std::string_view kInterfaceName;
extern const std::string_view kInterfaceText;

}  // namespace publishing
