// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace publishing {

// How many pages the PDF or PostScript document at that path has: those of the PDF's page tree,
// or the page comments of the PostScript. Reads PostScript to its end, of a PDF only what leads to
// its pages. Nothing when the file cannot be read, a PDF is damaged beyond repair or needs a
// password, PostScript has no page comments, or it is neither.
std::optional<int> pagesIn(const std::string& path);

}  // namespace publishing
