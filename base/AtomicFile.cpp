// SPDX-License-Identifier: Apache-2.0
#include "base/AtomicFile.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace publishing {
namespace {

void check(bool done) {
  if (!done) throw std::system_error(errno, std::generic_category());
}

// A file beside the one that it is to replace; removed again unless it did.
class Replacement {
 public:
  explicit Replacement(const std::string& path) : name_(path + ".XXXXXX") {
    descriptor_ = g_mkstemp_full(name_.data(), O_WRONLY | O_CLOEXEC, 0644);
    check(descriptor_ >= 0);
  }
  ~Replacement() {
    close(descriptor_);
    if (!name_.empty()) unlink(name_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void takeModeAndOwnerOf(const std::string& path) const {
    struct stat given {};
    if (stat(path.c_str(), &given) != 0) return;
    struct stat own {};
    check(fstat(descriptor_, &own) == 0);
    if (own.st_uid != given.st_uid || own.st_gid != given.st_gid) {
      check(fchown(descriptor_, given.st_uid, given.st_gid) == 0);
    }
    check(fchmod(descriptor_, given.st_mode & ALLPERMS) == 0);
  }

  void write(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = ::write(descriptor_, text.data(), text.size());
      check(written >= 0 || errno == EINTR);
      if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    check(fsync(descriptor_) == 0);
  }

  void replace(const std::string& path) {
    check(rename(name_.c_str(), path.c_str()) == 0);
    name_.clear();
  }

 private:
  std::string name_;
  int descriptor_ = -1;
};

// The new name is to survive a crash too. Some file systems cannot do that; the file is sound then.
void syncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

void replaceFile(const std::string& path, const std::string& text) {
  Replacement replacement(path);
  replacement.takeModeAndOwnerOf(path);
  replacement.write(text);
  replacement.replace(path);
  syncFolder(std::filesystem::path(path).parent_path());
}

}  // namespace publishing
