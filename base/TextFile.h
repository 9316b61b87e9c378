// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace publishing {

// What became of reading a whole text file.
struct TextFile {
  enum class State { Read, Missing, Unusable };

  State state = State::Missing;
  std::string text;   // of a file that was read
  std::string fault;  // for the user: why it is unusable

  [[nodiscard]] bool isRead() const { return state == State::Read; }
  [[nodiscard]] bool isMissing() const { return state == State::Missing; }
  [[nodiscard]] bool isUnusable() const { return state == State::Unusable; }
};

// A file is unusable when it cannot be read, is no regular file, is longer than `largest` bytes, or
// holds a NUL byte.
TextFile readTextFile(const std::string& path, std::size_t largest);

}  // namespace publishing
