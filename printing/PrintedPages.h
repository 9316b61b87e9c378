// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>

namespace publishing {

// How many page images of a document with that many pages reach the paper, by the job's options as
// CUPS's filters read them: number-up and booklet put several pages on a side; page-ranges and
// page-set then choose among the sides. Nothing for values that those filters do not understand.
std::optional<int> printedPages(int pages, const std::map<std::string, std::string>& options);

// Whether the options leave out pages, so that what is printed first need not be page 1.
bool leavesOutPages(const std::map<std::string, std::string>& options);

}  // namespace publishing
