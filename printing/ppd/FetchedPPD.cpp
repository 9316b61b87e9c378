// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/FetchedPPD.h"

#include <ctime>

#include <cups/ppd.h>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {

FetchedPPD::FetchedPPD(http_t* http, const std::string& queue) {
  std::time_t modified = 0;
  const http_status_t status =
      cupsGetPPD3(http, queue.c_str(), &modified, path_.data(), path_.size());
  if (status == HTTP_STATUS_OK || status == HTTP_STATUS_NOT_FOUND) return;
  throw PrintError::trouble(
      translated("The print server did not provide the PPD of the queue %s: %s.", queue,
                 cupsLastErrorString()));
}

FetchedPPD::~FetchedPPD() {
  if (exists()) unlink(path_.data());
}

}  // namespace publishing
