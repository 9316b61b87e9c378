// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPlanner.h"

#include <algorithm>
#include <utility>

namespace publishing {

SheetPlanner::SheetPlanner(SheetOrder order) : order_(std::move(order)) {
  const CoverSides& sides = order_.coverSides;
  if (order_.covers != Covers::None) frontCoverPages_ = sides.frontOutside + sides.frontInside;
  if (order_.covers == Covers::FrontAndBack) backCoverPages_ = sides.backOutside + sides.backInside;
}

std::vector<SheetSide> SheetPlanner::addPage() {
  ++arrived_;
  if (arrived_ == 1 && order_.covers != Covers::None) startFrontCover();
  if (arrived_ <= frontCoverPages_) {
    if (order_.coverSides.frontInside && arrived_ == frontCoverPages_) printBack(arrived_);
  } else if (keptPages() > backCoverPages_) {
    printBody(printed_ + 1);
  }
  return std::exchange(answer_, {});
}

std::vector<SheetSide> SheetPlanner::finish() {
  closeSheet();
  lastBody_ = printed_;
  if (arrived_ > 0 && order_.covers == Covers::FrontAndBack) printBackCover();
  return std::exchange(answer_, {});
}

std::vector<SheetWarning> SheetPlanner::warnings() const {
  SheetWarning onCover{SheetWarning::Kind::PageOnCover, {}, {}};
  SheetWarning beyondEnd{SheetWarning::Kind::PageBeyondEnd, {}, {}};
  for (const int page : order_.insertPages) {
    if (page > arrived_) {
      beyondEnd.pages.push_back(page);
    } else if (page <= frontCoverPages_ || page > lastBody_) {
      onCover.pages.push_back(page);
    }
  }
  std::vector<SheetWarning> warnings;
  if (!onCover.pages.empty()) warnings.push_back(std::move(onCover));
  if (!beyondEnd.pages.empty()) warnings.push_back(std::move(beyondEnd));
  return warnings;
}

void SheetPlanner::startFrontCover() {
  startSheet(SheetRole::FrontCover, order_.coverSides.frontOutside ? 1 : kBlankSide, 1);
  backStaysBlank_ = !order_.coverSides.frontInside;
}

// With too few pages left the last one still goes outside, and the inside stays blank.
void SheetPlanner::printBackCover() {
  const int left = keptPages();
  const bool fills = left == backCoverPages_;
  const int inside = order_.coverSides.backInside && fills ? printed_ + 1 : kBlankSide;
  const int outside = order_.coverSides.backOutside && left > 0 ? arrived_ : kBlankSide;
  const int first = inside != kBlankSide ? inside : outside;
  startSheet(SheetRole::BackCover, inside, first != kBlankSide ? first : arrived_);
  if (outside != kBlankSide) printBack(outside);
  closeSheet();
}

void SheetPlanner::printBody(int page) {
  const std::vector<int>& listed = order_.insertPages;
  if (std::binary_search(listed.begin(), listed.end(), page)) {
    printListed(page);
  } else if (lacksBack_ && !backStaysBlank_) {
    printBack(page);
  } else {
    startSheet(SheetRole::Body, page, page);
  }
}

void SheetPlanner::printListed(int page) {
  switch (order_.insertPrinting) {
    case InsertPrinting::Blank:
      startSheet(SheetRole::Insert, kBlankSide, page);
      startSheet(SheetRole::Body, page, page);
      break;
    case InsertPrinting::Front:
      startSheet(SheetRole::Insert, page, page);
      backStaysBlank_ = true;
      break;
    case InsertPrinting::Back:
      startSheet(SheetRole::Insert, kBlankSide, page);
      printBack(page);
      break;
    case InsertPrinting::FrontAndBack:
      startSheet(SheetRole::Insert, page, page);
      break;
  }
}

void SheetPlanner::startSheet(SheetRole role, int page, int sizedAs) {
  closeSheet();
  last_ = {last_.sheet + 1, role, false, page, sizedAs};
  answer_.push_back(last_);
  if (page != kBlankSide) printed_ = page;
  lacksBack_ = order_.twoSided;
  backStaysBlank_ = false;
}

void SheetPlanner::printBack(int page) {
  last_.isBack = true;
  last_.page = page;
  answer_.push_back(last_);
  if (page != kBlankSide) {
    answer_.back().sizedAs = page;
    printed_ = page;
  }
  lacksBack_ = false;
}

void SheetPlanner::closeSheet() {
  if (lacksBack_) printBack(kBlankSide);
}

}  // namespace publishing
