// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// The same pages as `list`, written so that the panel accepts them again: the panel takes 10 single
// pages and ranges of up to 10 pages, but stores every page of a range by itself. Runs become
// ranges of 2 to 10 pages, which come first because they leave no room to single pages otherwise;
// only pages without a neighbour stay single: "5,6,...,14,20,...,29,2," is "5-14,20-29,2". A text
// that is no page list stays as it is.
std::string asRanges(const std::string& list);

}  // namespace publishing
