// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// A file name that stands for any bytes, each for its own: letters, digits and "-._~" stand for
// themselves, other bytes as %XX, and a name that would be too long for a file gets a checksum in
// place of its end. It holds no "/"; an ending that the caller adds keeps it from being "." or
// "..".
std::string fileNameOf(const std::string& bytes);

}  // namespace publishing
