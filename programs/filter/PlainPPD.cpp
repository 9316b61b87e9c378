// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/PlainPPD.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include <sys/mman.h>
#include <unistd.h>

namespace publishing {
namespace {

constexpr const char* kEntry = "*cupsEvenDuplex";

}  // namespace

PlainPPD::PlainPPD(bool isNeeded) {
  if (!isNeeded) return;
  file_.reset(memfd_create("ppd", MFD_CLOEXEC));
  if (!file_) throw std::system_error(errno, std::generic_category(), "memfd_create");
  std::ifstream original(std::getenv("PPD"), std::ios::binary);
  std::string text;
  for (std::string line; std::getline(original, line);) {
    if (!line.starts_with(kEntry)) text += line + '\n';
  }
  writeAll(file_.get(), text);
}

std::vector<std::pair<std::string, std::string>> PlainPPD::environment() const {
  if (!file_) return {};
  return {{"PPD", "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(file_.get())}};
}

}  // namespace publishing
