// SPDX-License-Identifier: Apache-2.0
// Reading and writing by file descriptor: pipes, the printer, nameless files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace publishing {

// Owns a file descriptor, -1 is none.
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  ~FileDescriptor() { reset(); }
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(other.release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  [[nodiscard]] int get() const { return descriptor_; }
  [[nodiscard]] explicit operator bool() const { return descriptor_ >= 0; }
  int release();
  void reset(int descriptor = -1);

 private:
  int descriptor_;
};

// What a call by file descriptor throws when it fails; the code is that of the system. Interrupted
// calls are made again, unless the job was cancelled: JobCancelled.

// At least one byte, 0 at the end. Throws std::system_error.
std::size_t readSome(int descriptor, char* buffer, std::size_t size);

// The same from a place in a file.
std::size_t readSomeAt(int descriptor, char* buffer, std::size_t size, std::size_t offset);

// Throws std::system_error; nobody reads any more: EPIPE.
void writeAll(int descriptor, std::string_view bytes);

// A file without a name, below $TMPDIR or /tmp: it is gone when it is closed, however this process
// ends. Throws std::system_error.
FileDescriptor openNamelessFile();

// The folder of those files.
std::string temporaryFolder();

}  // namespace publishing
