#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace publishing {

// The whole file. Nothing and an empty `reason` when there is none; nothing and a `reason` for the
// user when it cannot be read, is no regular file, is longer than `largest` bytes, or holds a NUL
// byte.
std::optional<std::string> textOfFile(const std::string& path, std::size_t largest,
                                      std::string& reason);

}  // namespace publishing
