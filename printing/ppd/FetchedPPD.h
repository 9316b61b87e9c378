// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include <cups/cups.h>

#include "base/Descriptor.h"

namespace publishing {

// A print queue's PPD, fetched from the server. The copy is in memory, so that a program that is
// killed leaves nothing; that of a class of queues, or of another server's queue, which libcups
// finds out itself, is a temporary file until the object goes.
class FetchedPPD {
 public:
  // Throws PrintError (Trouble) when the server does not hand the PPD out.
  FetchedPPD(http_t* http, const std::string& queue);
  ~FetchedPPD();
  FetchedPPD(const FetchedPPD&) = delete;
  FetchedPPD& operator=(const FetchedPPD&) = delete;

  // False for a queue that has no PPD.
  [[nodiscard]] bool exists() const { return copy_.isOpen() || !file_.empty(); }

  // Good for this process alone.
  [[nodiscard]] std::string path() const;

  // Why the copy may be incomplete, because there is no room for more in the folder for temporary
  // files; nothing when there is.
  [[nodiscard]] std::optional<std::string> lackOfRoom() const;

 private:
  Descriptor copy_;
  std::string file_;
};

}  // namespace publishing
