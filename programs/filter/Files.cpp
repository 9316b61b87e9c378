// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/Files.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "programs/filter/Cancellation.h"

namespace publishing {
namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

// Makes the call until it was not interrupted.
template <class Call>
std::size_t repeated(const char* what, Call call) {
  while (true) {
    throwIfCancelled();
    const ssize_t result = call();
    if (result >= 0) return static_cast<std::size_t>(result);
    if (errno != EINTR) fail(what);
  }
}

}  // namespace

int FileDescriptor::release() {
  return std::exchange(descriptor_, -1);
}

void FileDescriptor::reset(int descriptor) {
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = descriptor;
}

std::size_t readSome(int descriptor, char* buffer, std::size_t size) {
  return repeated("read", [&] { return read(descriptor, buffer, size); });
}

std::size_t readSomeAt(int descriptor, char* buffer, std::size_t size, std::size_t offset) {
  return repeated("read",
                  [&] { return pread(descriptor, buffer, size, static_cast<off_t>(offset)); });
}

void writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(
        repeated("write", [&] { return write(descriptor, bytes.data(), bytes.size()); }));
  }
}

std::string temporaryFolder() {
  const char* folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder != '\0' ? folder : "/tmp";
}

FileDescriptor openNamelessFile() {
  const std::string folder = temporaryFolder();
  FileDescriptor file(open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
  if (file) return file;
  // Not every file system has files without a name.
  std::string name = folder + "/publishingtops.XXXXXX";
  file.reset(mkostemp(name.data(), O_CLOEXEC));
  if (!file) fail("open");
  unlink(name.c_str());
  return file;
}

}  // namespace publishing
