// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/FetchedPPD.h"

#include <cerrno>
#include <ctime>

#include <cups/ppd.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include "base/Descriptor.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"

namespace publishing {

FetchedPPD::FetchedPPD(http_t* http, const std::string& queue) {
  std::time_t modified = 0;
  const http_status_t status =
      cupsGetPPD3(http, queue.c_str(), &modified, path_.data(), path_.size());
  if (status == HTTP_STATUS_OK || status == HTTP_STATUS_NOT_FOUND) return;
  throw PrintError::trouble(translated(
      "The print server did not provide the PPD of the queue %s: %s.", queue, serverReason()));
}

// libcups does not say when it could not write.
std::optional<std::string> FetchedPPD::lackOfRoom() const {
  const Descriptor copy(open(path_.data(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC));
  if (!copy.isOpen() || write(copy.get(), "\n", 1) == 1) return std::nullopt;
  return g_strerror(errno);
}

FetchedPPD::~FetchedPPD() {
  if (exists()) unlink(path_.data());
}

}  // namespace publishing
