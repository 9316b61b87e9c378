// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// A text as a file, for libraries that read files by name: in memory, without a name that anybody
// else could open or leave behind. Lives as long as the object.
class MemoryFile {
 public:
  // Throws std::system_error.
  explicit MemoryFile(const std::string& text);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  // Good for this process alone.
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace publishing
