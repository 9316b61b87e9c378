// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <optional>
#include <string>

#include <cups/cups.h>

namespace publishing {

// A print queue's PPD, fetched from the server: a copy of the server's file or a link to it, which
// is removed with the object.
class FetchedPPD {
 public:
  // Throws PrintError (Trouble) when the server does not hand the PPD out.
  FetchedPPD(http_t* http, const std::string& queue);
  ~FetchedPPD();
  FetchedPPD(const FetchedPPD&) = delete;
  FetchedPPD& operator=(const FetchedPPD&) = delete;

  // False for a queue that has no PPD.
  [[nodiscard]] bool exists() const { return path_.front() != '\0'; }
  [[nodiscard]] std::string path() const { return path_.data(); }

  // Why the copy may be incomplete, because there is no room for more in the folder for temporary
  // files; nothing when there is.
  [[nodiscard]] std::optional<std::string> lackOfRoom() const;

 private:
  std::array<char, 1024> path_{};
};

}  // namespace publishing
