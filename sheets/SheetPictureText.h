// SPDX-License-Identifier: Apache-2.0
// How much room texts take in a picture of sheets, without a font: estimates that are rather too
// large. Texts are UTF-8; bytes that are not count as one character each or none.
#pragma once

#include <cstddef>
#include <string>

namespace publishing {

// In characters.
std::size_t lengthOf(const std::string& text);

// Of a text of that height, in the same units.
double widthOf(const std::string& text, double size);

// The text, or as much of it as fits with "…" behind it.
std::string fitted(const std::string& text, double size, double width);

// The place in bytes behind the first "–"; 0 without one.
std::size_t afterDash(const std::string& text);

}  // namespace publishing
