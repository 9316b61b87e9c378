// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/FetchedPPD.h"

#include <array>
#include <cerrno>
#include <ctime>
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

}  // namespace

FetchedPPD::FetchedPPD(http_t* http, const std::string& queue) {
  Descriptor copy(memfd_create("publishing", MFD_CLOEXEC));
  if (copy.isOpen()) {
    const std::string resource = "/printers/" + queue + ".ppd";
    const http_status_t status = cupsGetFd(http, resource.c_str(), copy.get());
    check(status, queue);
    if (status == HTTP_STATUS_OK) copy_ = std::move(copy);
  }
  if (copy_.isOpen()) return;
  std::time_t modified = 0;
  std::array<char, 1024> path{};
  check(cupsGetPPD3(http, queue.c_str(), &modified, path.data(), path.size()), queue);
  file_ = path.data();
}

std::string FetchedPPD::path() const {
  return copy_.isOpen() ? "/proc/self/fd/" + std::to_string(copy_.get()) : file_;
}

// libcups does not say when it could not write.
std::optional<std::string> FetchedPPD::lackOfRoom() const {
  if (file_.empty()) return std::nullopt;
  const Descriptor copy(open(file_.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC));
  if (!copy.isOpen() || write(copy.get(), "\n", 1) == 1) return std::nullopt;
  return g_strerror(errno);
}

FetchedPPD::~FetchedPPD() {
  if (!file_.empty()) unlink(file_.c_str());
}

}  // namespace publishing
