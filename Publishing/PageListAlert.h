// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace publishing {

// What the user is told of a page list that ParsePageNumber refused; untranslated.
struct PageListAlert {
  const char* title;
  const char* message;
};

// The alert for a list that is not even parsed: nothing was typed, or it begins with something else
// than a page.
std::optional<PageListAlert> alertForPageText(const std::optional<std::string>& list);

// The alert for a result other than 0. `duplex` and `coverMode` are what the parser was given: they
// decide which lowest page the message names. It names 3 for two-sided jobs only, although the
// parser keeps single pages from 3 on for one-sided jobs too when both front sides are printed.
PageListAlert alertForPageList(std::int32_t result, bool duplex, std::int64_t coverMode);

}  // namespace publishing
