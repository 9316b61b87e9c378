// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <cups/cups.h>

#include "base/Descriptor.h"

namespace publishing {

// A print queue's PPD, fetched from the server. The copy is in memory, so that a program that is
// killed leaves nothing; where it cannot be kept there, and for another server's queue, which
// libcups finds out itself, it is a temporary file until the object goes.
class FetchedPPD {
 public:
  // Throws PrintError (Trouble) when the server does not hand the PPD out, and when there is no
  // room for the whole copy.
  FetchedPPD(http_t* http, const std::string& queue);
  ~FetchedPPD();
  FetchedPPD(const FetchedPPD&) = delete;
  FetchedPPD& operator=(const FetchedPPD&) = delete;

  // False for a queue that has no PPD.
  [[nodiscard]] bool exists() const { return copy_.isOpen() || !file_.empty(); }

  // Good for this process alone.
  [[nodiscard]] std::string path() const;

 private:
  void checkRoom(const std::string& queue) const;

  Descriptor copy_;
  std::string file_;
};

}  // namespace publishing
