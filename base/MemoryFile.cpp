// SPDX-License-Identifier: Apache-2.0
#include "base/MemoryFile.h"

#include <cerrno>
#include <string_view>
#include <system_error>

#include <sys/mman.h>
#include <unistd.h>

namespace publishing {

MemoryFile::MemoryFile(const std::string& text)
    : descriptor_(memfd_create("publishing", MFD_CLOEXEC)),
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category());
  std::string_view rest = text;
  while (!rest.empty()) {
    const ssize_t written = write(descriptor_, rest.data(), rest.size());
    if (written < 0 && errno != EINTR) {
      const int reason = errno;
      close(descriptor_);
      throw std::system_error(reason, std::generic_category());
    }
    if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

MemoryFile::~MemoryFile() {
  close(descriptor_);
}

}  // namespace publishing
