// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace publishing {

// The first entry of a page list that the panel does not accept, and why.
struct PageListFault {
  std::size_t first = 0;   // the entry's place in the list, in bytes
  std::size_t length = 0;  // 0 for a list without entries
  std::string reason;      // for the user, naming the entry; empty for a list without entries
};

// Nothing for a list that the panel accepts for a job with these sides and these cover sides
// (PublishingSettings::covermodeValue).
std::optional<PageListFault> faultInPages(const std::string& list, bool twoSided,
                                          std::int64_t coverSides);

}  // namespace publishing
