// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// Replaces the file by one with this text, as a whole: whoever reads it, at whatever moment and
// also after a crash, finds the old or the new text. Mode and owner stay; a new file is made with
// mode 0644 less the umask. `path` is no symbolic link and its folder is there. Throws
// std::system_error; the old file then still stands.
void replaceFile(const std::string& path, const std::string& text);

}  // namespace publishing
