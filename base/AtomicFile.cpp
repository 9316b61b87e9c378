// SPDX-License-Identifier: Apache-2.0
#include "base/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace publishing {
namespace {

constexpr const char* kEnding = ".XXXXXX";  // GLib makes six random characters of it
constexpr const char* kWaiting = ".publishing";

void check(bool done) {
  if (!done) throw std::system_error(errno, std::generic_category());
}

std::string folderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder;
}

// The new name is to survive a crash too. Some file systems cannot do that; the file is sound then.
void syncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path, mode_t mode) : path_(path) {
  descriptor_ = open(folderOf(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
  if (descriptor_ >= 0) return;
  check(errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL);
  name_ = path + kEnding;
  descriptor_ = g_mkstemp_full(name_.data(), O_WRONLY | O_CLOEXEC, static_cast<int>(mode));
  check(descriptor_ >= 0);
}

AtomicFile::~AtomicFile() {
  close(descriptor_);
  if (!name_.empty()) unlink(name_.c_str());
}

void AtomicFile::takeModeAndOwner() const {
  struct stat given {};
  if (stat(path_.c_str(), &given) != 0) return;
  struct stat own {};
  check(fstat(descriptor_, &own) == 0);
  if (own.st_uid != given.st_uid || own.st_gid != given.st_gid) {
    check(fchown(descriptor_, given.st_uid, given.st_gid) == 0);
  }
  check(fchmod(descriptor_, given.st_mode & ALLPERMS) == 0);
}

void AtomicFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    check(written >= 0 || errno == EINTR);
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool AtomicFile::linkTo(const std::string& name) const {
  const std::string own = name_.empty() ? "/proc/self/fd/" + std::to_string(descriptor_) : name_;
  return linkat(AT_FDCWD, own.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

// A nameless file can only get a name that is free, so it is renamed afterwards. It is the same
// name for all: what a killed process left there is taken along by the next, and whole like its
// own.
void AtomicFile::takePlace() const {
  const std::string name = path_ + kWaiting;
  const auto rename = [&] {
    // Gone: another process that replaces the file at the same time has done it.
    check(std::rename(name.c_str(), path_.c_str()) == 0 || errno == ENOENT);
  };
  while (!linkTo(name)) {
    check(errno == EEXIST);
    rename();
  }
  rename();
}

void AtomicFile::replace() {
  check(fsync(descriptor_) == 0);
  if (name_.empty()) {
    takePlace();
  } else {
    check(std::rename(name_.c_str(), path_.c_str()) == 0);
    name_.clear();
  }
  syncFolder(folderOf(path_));
}

void AtomicFile::create() {
  check(fsync(descriptor_) == 0);
  check(linkTo(path_));
  syncFolder(folderOf(path_));
}

void replaceFile(const std::string& path, const std::string& text) {
  constexpr mode_t kNewFile = 0644;
  AtomicFile file(path, kNewFile);
  file.takeModeAndOwner();
  file.write(text);
  file.replace();
}

}  // namespace publishing
