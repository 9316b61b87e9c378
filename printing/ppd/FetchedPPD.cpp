// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/FetchedPPD.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <optional>
#include <utility>

#include <cups/ppd.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"

namespace publishing {
namespace {

void check(http_status_t status, const std::string& queue) {
  if (status == HTTP_STATUS_OK || status == HTTP_STATUS_NOT_FOUND) return;
  throw PrintError::trouble(translated(
      "The print server did not provide the PPD of the queue %s: %s.", queue, serverReason()));
}

// Why a copy may have been cut off: libcups does not say when it could not write, but then the next
// byte cannot be written, either. Nothing when it can.
std::optional<std::string> lackOfRoom(const Descriptor& copy) {
  const off_t end = lseek(copy.get(), 0, SEEK_END);
  if (write(copy.get(), "\n", 1) == 1 && ftruncate(copy.get(), end) == 0) return std::nullopt;
  return g_strerror(errno);
}

}  // namespace

FetchedPPD::FetchedPPD(http_t* http, const std::string& queue) {
  Descriptor copy(memfd_create("publishing", MFD_CLOEXEC));
  if (copy.isOpen()) {
    const std::string resource = "/printers/" + queue + ".ppd";
    const http_status_t status = cupsGetFd(http, resource.c_str(), copy.get());
    check(status, queue);
    if (status == HTTP_STATUS_OK && !lackOfRoom(copy)) copy_ = std::move(copy);
  }
  if (copy_.isOpen()) return;
  std::time_t modified = 0;
  std::array<char, 1024> path{};
  check(cupsGetPPD3(http, queue.c_str(), &modified, path.data(), path.size()), queue);
  file_ = path.data();
  checkRoom(queue);
}

void FetchedPPD::checkRoom(const std::string& queue) const {
  const Descriptor copy(open(file_.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!copy.isOpen()) return;
  const auto reason = lackOfRoom(copy);
  if (!reason) return;
  unlink(file_.c_str());
  throw PrintError::trouble(
      translated("The PPD of the queue %s cannot be kept in the temporary folder: %s. Make room "
                 "there, or name another folder in TMPDIR.",
                 queue, *reason));
}

std::string FetchedPPD::path() const {
  return copy_.isOpen() ? "/proc/self/fd/" + std::to_string(copy_.get()) : file_;
}

FetchedPPD::~FetchedPPD() {
  if (!file_.empty()) unlink(file_.c_str());
}

}  // namespace publishing
