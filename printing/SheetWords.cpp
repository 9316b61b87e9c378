// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetWords.h"

#include "base/Translation.h"

namespace publishing {
namespace {

using Kind = PictureItem::Kind;

// Of a picture with a known number of pages, and of a scheme's beginning.
std::string numbersOf(const PictureItem& item) {
  const std::string first = std::to_string(item.first + 1);
  if (item.count == 1) return translated("Sheet %s", first);
  return translated("Sheets %1$s to %2$s", first, std::to_string(item.first + item.count));
}

// Which sheets they are. A scheme does not know the numbers of its last ones.
std::string placeOf(const JobSheets& job, const PictureItem& item) {
  if (job.plan) return numbersOf(item);
  if (item.isOpen) return translated("More sheets");
  return item.role == SheetRole::BackCover ? translated("Last sheet") : numbersOf(item);
}

std::string sideOf(const PictureItem& item, const std::string& pages) {
  if (pages.empty()) return translated("blank");
  const bool isOne = item.kind == Kind::Sheet;
  return isOne ? translated("page %s", pages) : translated("pages %s", pages);
}

}  // namespace

std::string wordsOf(const JobSheets& job, const PictureItem& item) {
  if (item.kind == Kind::Gap) return translated("%s: not shown", numbersOf(item));
  const std::string place = placeOf(job, item);
  const std::string& medium = job.media.textOf(job.order.mediumOf(item.role));
  const std::string front = sideOf(item, item.front);
  if (!item.twoSided || item.bothSides) {
    // TRANSLATORS: Which sheets, their paper, what is on them.
    return translated("%1$s: %2$s, %3$s", place, medium, front);
  }
  return translated("%1$s: %2$s, front: %3$s, back: %4$s", place, medium, front,
                    sideOf(item, item.back));
}

}  // namespace publishing
