// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace publishing {

// What decides, besides the list, whether the panel accepts it.
struct PageListRules {
  bool twoSided = false;
  std::int64_t coverSides = 0;  // PublishingSettings::covermodeValue

  // The lowest page that a list may have by itself.
  [[nodiscard]] int lowestPage() const;
};

// The first entry of a page list that the panel does not accept, and why.
struct PageListFault {
  std::size_t first = 0;   // the entry's place in the list, in bytes
  std::size_t length = 0;  // 0 for a list without entries
  std::string reason;      // for the user, naming the entry; empty for a list without entries

  // Whether the entry is the beginning of one that the panel accepts, such as "12-".
  bool isBeginning = false;
};

// Nothing for a list that the panel accepts.
std::optional<PageListFault> faultInPages(const std::string& list, const PageListRules& rules);

}  // namespace publishing
