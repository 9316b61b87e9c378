// SPDX-License-Identifier: Apache-2.0
// The sheets of one set, planned while the pages of the document arrive.
#pragma once

#include <vector>

#include "sheets/Sheet.h"
#include "sheets/SheetOrder.h"

namespace publishing {

// Fed with the pages one after the other, it answers with the sides that are certain by then, in
// the order in which they are printed: every page once and in order, blank sides between them,
// the sides of a sheet next to each other, front first. In a two-sided job each sheet has both
// sides, in a one-sided job fronts alone.
//
// Sides, not whole sheets: the front of a sheet can go to the printer while its back is still to
// come, so that nothing is held back but the last pages, as many as the back cover takes.
//
// For a filter that passes the pages on:
// - addPage() when a page begins. When the page is in the answer, it is the last side of it and can
//   be passed on as it comes. Otherwise it is kept; the answer may then hold the page that was kept
//   longest.
// - finish() after the last page. The pages still kept are in the answer.
// - The medium may change before a front, never before a back.
// - A blank side has the size of the page sizedAs. That is the page printed last, or the next one
//   to be printed, which is kept or has just begun: a filter needs to know the size of a page
//   before it calls addPage() for it, and remembers the sizes of the page printed last and of
//   those that it keeps.
class SheetPlanner {
 public:
  explicit SheetPlanner(SheetOrder order);

  // The next page has begun.
  std::vector<SheetSide> addPage();

  // There are no more pages. A job without pages has no sheets, covers neither. To be called once;
  // no page may follow.
  std::vector<SheetSide> finish();

  // How many pages have begun that no answer held, at most two: the last ones.
  [[nodiscard]] int keptPages() const { return arrived_ - printed_; }

  // After finish(): the listed pages that got no insert.
  [[nodiscard]] std::vector<SheetWarning> warnings() const;

  [[nodiscard]] const SheetOrder& order() const { return order_; }

 private:
  void startFrontCover();
  void printBackCover();
  void printBody(int page);
  void printListed(int page);

  // A new sheet, after the last one was closed.
  void startSheet(SheetRole role, int page, int sizedAs);
  void printBack(int page);
  // Gives a sheet that lacks its back a blank one.
  void closeSheet();

  SheetOrder order_;
  // How many pages the covers take when there are enough.
  int frontCoverPages_ = 0;
  int backCoverPages_ = 0;

  int arrived_ = 0;
  int printed_ = 0;   // the last page that an answer held
  int lastBody_ = 0;  // after finish(): the last page before the back cover
  SheetSide last_;
  bool lacksBack_ = false;       // the last side is a front, its back is to come
  bool backStaysBlank_ = false;  // no page may be printed on that back
  std::vector<SheetSide> answer_;
};

}  // namespace publishing
