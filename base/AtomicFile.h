// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

namespace publishing {

// A file in the making that is to stand under `path`: whoever opens that, at whatever moment and
// also after a crash, finds the earlier file or the whole new one. It has no name until then, so a
// process that is killed leaves nothing. (But for the moment in which it gets its name: then the
// whole file stays beside `path`, ending in ".publishing", until the next one is put there. And on
// file systems without nameless files one with a random ending stays.) `path` is no symbolic link
// that is to be kept and its folder is there. All throw std::system_error.
class AtomicFile {
 public:
  // `mode` is less the umask.
  explicit AtomicFile(const std::string& path, mode_t mode);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Gives it the mode and the owner of the file that stands under `path`, if there is one.
  void takeModeAndOwner() const;

  void write(std::string_view bytes) const;

  // Puts it in the place of the earlier file, safe on the disk.
  void replace();

  // Puts it under `path`, safe on the disk, if nothing stands there: else it throws, with the error
  // EEXIST, also when another program was quicker by a moment.
  void create();

 private:
  [[nodiscard]] bool linkTo(const std::string& name) const;
  void takePlace() const;

  std::string path_;
  std::string name_;  // beside `path`; empty for a nameless file
  int descriptor_ = -1;
};

// Replaces the file by one with this text. Mode and owner stay; a new file is made with mode 0644
// less the umask. Throws std::system_error; the old file then still stands.
void replaceFile(const std::string& path, const std::string& text);

}  // namespace publishing
