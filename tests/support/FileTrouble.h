// SPDX-License-Identifier: Apache-2.0
// File systems that refuse, for as long as an object lives.
#pragma once

#include <csignal>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace publishing {

// No file may grow beyond that many bytes while this lives, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = SIG_DFL;
};

// Without root's right to read and write everything, while this lives.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (before_ != 0) return;
    EXPECT_EQ(seteuid(kNobody), 0);
  }
  ~OrdinaryUser() { EXPECT_EQ(seteuid(before_), 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  // Makes the file or folder that user's. To be called while there is none.
  static void own(const std::string& path) {
    if (geteuid() != 0) return;
    EXPECT_EQ(chown(path.c_str(), kNobody, static_cast<gid_t>(-1)), 0);
  }

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t before_ = geteuid();
};

}  // namespace publishing
