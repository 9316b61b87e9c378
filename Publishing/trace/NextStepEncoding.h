// SPDX-License-Identifier: Apache-2.0
// The 8-bit character encoding of NeXTSTEP: ASCII and 126 Latin letters, marks and signs above it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace publishing {

// `text` (UTF-8), one byte a character; nothing when it holds a character that the encoding lacks
// or is not valid UTF-8. No character is replaced by a similar one.
std::optional<std::string> nextStepBytes(std::string_view text);

}  // namespace publishing
