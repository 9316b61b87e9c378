// SPDX-License-Identifier: Apache-2.0
// The driver of a print queue, which is its PPD, taken from the server and put back.
#pragma once

#include <set>
#include <string>

#include "printing/CupsHandles.h"

namespace publishing {

class QueueDriver {
 public:
  // Fetches the queue's PPD. Throws PrintError: Refused for a queue without a driver, for a class
  // and for a queue of another server; Trouble when the server has no such queue or does not answer
  // properly; Usage when no queue can have that name.
  QueueDriver(http_t* http, const std::string& queue);

  [[nodiscard]] const std::string& ppd() const { return ppd_; }

  // Gives the queue this PPD and leaves its other settings alone, as lpadmin -P does. A queue that
  // then takes no PDF any more, because the server lacks the filter for covers, gets its PPD back.
  // Throws PrintError (Trouble): no rights, no such filter, or the server's reason.
  void replacePPD(const std::string& ppd);

 private:
  void put(const std::string& ppd) const;
  [[nodiscard]] IppHandle attributes() const;
  [[nodiscard]] std::set<std::string> formats() const;

  http_t* http_;
  std::string queue_;
  std::string uri_;
  std::string ppd_;
};

}  // namespace publishing
