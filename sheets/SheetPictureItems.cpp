// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureItems.h"

#include <algorithm>

namespace publishing {
namespace {

using Sheets = std::vector<Sheet>;

constexpr std::size_t kFewestBodySheets = 2;
constexpr std::size_t kFewestInserts = 4;
constexpr const char* kDash = "\u2013";

bool isCover(const Sheet& sheet) {
  return sheet.role == SheetRole::FrontCover || sheet.role == SheetRole::BackCover;
}

int backOf(const Sheet& sheet) {
  return sheet.back.value_or(kBlankSide);
}

bool printsFront(const Sheet& sheet) {
  return sheet.front != kBlankSide;
}

bool printsBack(const Sheet& sheet) {
  return backOf(sheet) != kBlankSide;
}

bool isFull(const Sheet& sheet) {
  return printsFront(sheet) && (!sheet.back || printsBack(sheet));
}

bool isLike(const Sheet& one, const Sheet& other) {
  return one.role == other.role && printsFront(one) == printsFront(other) &&
         printsBack(one) == printsBack(other);
}

// How many sheets from `first` on are shown as one.
std::size_t stackAt(const Sheets& sheets, std::size_t first) {
  const Sheet& sheet = sheets[first];
  const bool isInsert = sheet.role == SheetRole::Insert;
  if (isCover(sheet) || (!isInsert && !isFull(sheet))) return 1;
  std::size_t end = first + 1;
  while (end < sheets.size() && isLike(sheets[end], sheet))
    ++end;
  const std::size_t count = end - first;
  return count >= (isInsert ? kFewestInserts : kFewestBodySheets) ? count : 1;
}

std::string rangeOf(int first, int last, const PageName& pageName) {
  if (first == kBlankSide) return {};
  if (first == last) return pageName(first);
  return pageName(first) + kDash + pageName(last);
}

PictureItem itemOf(const Sheet& first, const Sheet& last, const PageName& pageName) {
  PictureItem item;
  item.role = first.role;
  item.twoSided = first.back.has_value();
  item.bothSides = &first != &last && item.twoSided && isFull(first);
  if (item.bothSides) {
    item.front = rangeOf(first.front, backOf(last), pageName);
  } else {
    item.front = rangeOf(first.front, last.front, pageName);
    item.back = rangeOf(backOf(first), backOf(last), pageName);
  }
  return item;
}

}  // namespace

std::vector<PictureItem> itemsOf(const SheetPlan& plan, const PageName& pageName) {
  const Sheets& sheets = plan.sheets;
  std::vector<PictureItem> items;
  for (std::size_t first = 0, count = 0; first < sheets.size(); first += count) {
    count = stackAt(sheets, first);
    PictureItem item = itemOf(sheets[first], sheets[first + count - 1], pageName);
    item.kind = count > 1 ? PictureItem::Kind::Stack : PictureItem::Kind::Sheet;
    item.paper = paperOf(plan, sheets[first].medium);
    item.first = first;
    item.count = count;
    items.push_back(std::move(item));
  }
  return items;
}

PicturePaper paperOf(const SheetPlan& plan, const std::string& medium) {
  if (medium.empty()) return PicturePaper::Body;
  const bool isCovers =
      !plan.sheets.empty() && isCover(plan.sheets.front()) && plan.sheets.front().medium == medium;
  return isCovers ? PicturePaper::Cover : PicturePaper::Insert;
}

// The end is shorter than the beginning: most jobs end as they went on.
std::vector<PictureItem> withGap(std::vector<PictureItem> items, std::size_t most) {
  if (items.size() <= most) return items;
  const std::size_t tail = std::max<std::size_t>(1, most / 4);
  const auto from = items.begin() + static_cast<std::ptrdiff_t>(most - tail - 1);
  const auto to = items.end() - static_cast<std::ptrdiff_t>(tail);
  PictureItem gap;
  gap.kind = PictureItem::Kind::Gap;
  gap.first = from->first;
  gap.count = to->first - from->first;
  gap.twoSided = from->twoSided;
  *from = gap;
  items.erase(from + 1, to);
  return items;
}

}  // namespace publishing
