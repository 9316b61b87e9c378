// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// The text as a toolkit can show it: bytes that are not UTF-8, and zero bytes, become U+FFFD.
std::string displayText(const std::string& text);

// The same for a label in which the character `mark` would mark a mnemonic: every one of them is
// shown as it stands.
std::string displayLabel(const std::string& text, char mark);

}  // namespace publishing
