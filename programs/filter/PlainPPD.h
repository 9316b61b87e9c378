// SPDX-License-Identifier: Apache-2.0
// The printer's PPD for CUPS's filters, when covers and inserts are made afterwards.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "programs/filter/Files.h"

namespace publishing {

// The PPD of the environment, without the entry that makes the filters fill up the number of pages:
// nobody could tell the page that they add from the document's own. It is in memory, and there for
// as long as this object.
class PlainPPD {
 public:
  // Without need, the PPD is left as it is. Throws std::system_error.
  explicit PlainPPD(bool isNeeded);

  // What the filters find it by.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> environment() const;

 private:
  FileDescriptor file_;
};

}  // namespace publishing
