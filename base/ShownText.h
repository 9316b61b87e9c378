// SPDX-License-Identifier: Apache-2.0
// Texts from outside made fit to be seen. Control characters can steer a terminal, others reorder
// the text around them or break its line: each becomes a blank.
#pragma once

#include <string>

namespace publishing {

// Any bytes, for the inside of a message: valid UTF-8 in one line, cut when very long.
std::string shown(const std::string& bytes);

// The same for a whole message, which keeps its line breaks and its length.
std::string shownLines(const std::string& text);

// A JSON text with those characters, which JSON itself allows inside its strings, written as
// \uXXXX. The text is valid UTF-8 and stays the same to a JSON parser.
std::string shownJson(const std::string& json);

}  // namespace publishing
