// SPDX-License-Identifier: Apache-2.0
// What a picture of sheets shows one by one, as a stack, or not at all. Without places.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "sheets/SheetPicture.h"

namespace publishing {

// How a page number is shown.
using PageName = std::function<std::string(int page)>;

// Every sheet of the plan in order. Body sheets that are full, two or more of them, are a stack; so
// are like inserts from four on, so that a few stay in sight. Covers stand alone.
std::vector<PictureItem> itemsOf(const SheetPlan& plan, const PageName& pageName);

// Which paper in the picture sheets on that medium have.
PicturePaper paperOf(const SheetPlan& plan, const std::string& medium);

// At most that many, 3 or more: the middle is replaced by a gap.
std::vector<PictureItem> withGap(std::vector<PictureItem> items, std::size_t most);

}  // namespace publishing
