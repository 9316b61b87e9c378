// SPDX-License-Identifier: Apache-2.0
#include "tests/sheets/SheetRules.h"

#include <algorithm>

#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using Kind = SheetWarning::Kind;
using Pages = std::vector<int>;

bool isListed(const SheetJob& job, int page) {
  return job.inserts && std::find(job.list.begin(), job.list.end(), page) != job.list.end();
}

// What a job really asks for.

bool knowsCoverValue(int value) {
  return value < 16 || value == 16 || value == 32;
}

bool hasFrontCover(const SheetJob& job) {
  return job.pages > 0 && job.covers && knowsCoverValue(job.coverValue);
}

bool hasBackCover(const SheetJob& job) {
  return hasFrontCover(job) && job.column == 2;
}

// Whether that side of a cover is to be printed: 1, 2, 4, 8 as in the cover value.
bool wants(const SheetJob& job, int side) {
  const bool facesUp = side == 1 || side == 8;
  const bool isThere = side <= 2 ? hasFrontCover(job) : hasBackCover(job);
  return isThere && (job.twoSided || facesUp) && job.coverValue < 16 &&
         (job.coverValue & side) != 0;
}

int pagesOnFrontCover(const SheetJob& job) {
  return std::min(job.pages, wants(job, 1) + wants(job, 2));
}

int pagesOnBackCover(const SheetJob& job) {
  return std::min(job.pages - pagesOnFrontCover(job), wants(job, 4) + wants(job, 8));
}

bool isBodyPage(const SheetJob& job, int page) {
  return page > pagesOnFrontCover(job) && page <= job.pages - pagesOnBackCover(job);
}

bool printsInsertFront(const SheetJob& job) {
  return (job.insertValue & 1) != 0;
}

bool printsInsertBack(const SheetJob& job) {
  return job.twoSided && (job.insertValue & 2) != 0;
}

bool printsInserts(const SheetJob& job) {
  return printsInsertFront(job) || printsInsertBack(job);
}

// Views of a plan.

int backOf(const Sheet& sheet) {
  return sheet.back.value_or(kBlankSide);
}

Pages printedPages(const std::vector<Sheet>& sheets) {
  Pages pages;
  for (const Sheet& sheet : sheets) {
    for (const int page : {sheet.front, backOf(sheet)})
      if (page != kBlankSide) pages.push_back(page);
  }
  return pages;
}

long count(const std::vector<Sheet>& sheets, SheetRole role) {
  return std::count_if(sheets.begin(), sheets.end(),
                       [role](const Sheet& sheet) { return sheet.role == role; });
}

// The rules. Each answers whether it is kept.

bool everyPageComesOutOnceAndInOrder(const SheetJob& job, const SheetPlan& plan) {
  const Pages pages = printedPages(plan.sheets);
  int last = 0;
  for (const int page : pages)
    if (page != ++last) return false;
  return last == job.pages;
}

bool everySheetIsWhole(const SheetJob& job, const SheetPlan& plan) {
  return std::all_of(plan.sheets.begin(), plan.sheets.end(),
                     [&job](const Sheet& sheet) { return sheet.back.has_value() == job.twoSided; });
}

bool coversLieAtBothEnds(const SheetJob& job, const SheetPlan& plan) {
  const std::vector<Sheet>& sheets = plan.sheets;
  if (count(sheets, SheetRole::FrontCover) != hasFrontCover(job)) return false;
  if (count(sheets, SheetRole::BackCover) != hasBackCover(job)) return false;
  if (hasFrontCover(job) && sheets.front().role != SheetRole::FrontCover) return false;
  return !hasBackCover(job) || sheets.back().role == SheetRole::BackCover;
}

// The outside comes before the inside when pages are scarce.
bool frontCoverTakesTheFirstPages(const SheetJob& job, const SheetPlan& plan) {
  if (!hasFrontCover(job)) return true;
  const Sheet& cover = plan.sheets.front();
  const int outside = wants(job, 1) ? 1 : kBlankSide;
  const int inside = wants(job, 2) && job.pages >= 1 + wants(job, 1) ? 1 + wants(job, 1) : 0;
  return cover.front == outside && backOf(cover) == inside;
}

bool backCoverTakesTheLastPages(const SheetJob& job, const SheetPlan& plan) {
  if (!hasBackCover(job)) return true;
  const Sheet& cover = plan.sheets.back();
  const int left = job.pages - pagesOnFrontCover(job);
  const int outside = wants(job, 4) && left >= 1 ? job.pages : kBlankSide;
  const int inside = wants(job, 8) && left >= 1 + wants(job, 4) ? job.pages - wants(job, 4) : 0;
  return cover.front == inside && backOf(cover) == outside;
}

bool everyListedPageOfTheBodyHasItsInsert(const SheetJob& job, const SheetPlan& plan) {
  long expected = 0;
  for (int page = 1; page <= job.pages; ++page)
    expected += isListed(job, page) && isBodyPage(job, page);
  return count(plan.sheets, SheetRole::Insert) == expected;
}

bool blankInsertsPrecedeAListedPage(const SheetJob& job, const SheetPlan& plan) {
  if (printsInserts(job)) return true;
  const std::vector<Sheet>& sheets = plan.sheets;
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    if (sheets[i].role != SheetRole::Insert) continue;
    if (sheets[i].front != kBlankSide || backOf(sheets[i]) != kBlankSide) return false;
    if (i + 1 == sheets.size() || sheets[i + 1].role != SheetRole::Body) return false;
    if (!isListed(job, sheets[i + 1].front)) return false;
  }
  return true;
}

bool printedInsertsHoldTheirListedPage(const SheetJob& job, const SheetPlan& plan) {
  if (!printsInserts(job)) return true;
  return std::all_of(plan.sheets.begin(), plan.sheets.end(), [&job](const Sheet& sheet) {
    if (sheet.role == SheetRole::Body)
      return !isListed(job, sheet.front) && !isListed(job, backOf(sheet));
    if (sheet.role != SheetRole::Insert) return true;
    if (!printsInsertFront(job)) return sheet.front == kBlankSide && isListed(job, backOf(sheet));
    if (!isListed(job, sheet.front)) return false;
    return printsInsertBack(job) ? !isListed(job, backOf(sheet)) : backOf(sheet) == kBlankSide;
  });
}

bool bodySheetsBeginWithAPage(const SheetJob&, const SheetPlan& plan) {
  return std::all_of(plan.sheets.begin(), plan.sheets.end(), [](const Sheet& sheet) {
    return sheet.role != SheetRole::Body || sheet.front != kBlankSide;
  });
}

// A back that could take the next page does so; listed pages never lie on the back of the body.
bool backsStayBlankForAReasonOnly(const SheetJob& job, const SheetPlan& plan) {
  if (!job.twoSided) return true;
  return std::all_of(plan.sheets.begin(), plan.sheets.end(), [&job](const Sheet& sheet) {
    const bool couldTakeOne =
        sheet.role == SheetRole::Body ||
        (sheet.role == SheetRole::Insert && printsInsertFront(job) && printsInsertBack(job));
    if (!couldTakeOne) return true;
    const int next = sheet.front + 1;
    const bool mustWait = !isBodyPage(job, next) || isListed(job, next);
    return (backOf(sheet) == kBlankSide) == mustWait;
  });
}

bool mediaFollowRoles(const SheetJob&, const SheetPlan& plan) {
  return std::all_of(plan.sheets.begin(), plan.sheets.end(), [](const Sheet& sheet) {
    switch (sheet.role) {
      case SheetRole::Body:
        return sheet.medium.empty();
      case SheetRole::Insert:
        return sheet.medium == "Thick";
      default:
        return sheet.medium == "Leather";
    }
  });
}

// Its own page, else the page after it, else the last one.
bool blankSidesHaveTheSizeOfAPage(const SheetJob&, const SheetPlan& plan) {
  int next = 0;
  const Pages pages = printedPages(plan.sheets);
  return std::all_of(plan.sheets.rbegin(), plan.sheets.rend(), [&](const Sheet& sheet) {
    const int own = sheet.front != kBlankSide ? sheet.front : backOf(sheet);
    if (own != kBlankSide) next = own;
    return !pages.empty() && sheet.sizedAs == (next != 0 ? next : pages.back());
  });
}

bool listedPagesWithoutAnInsertAreNamed(const SheetJob& job, const SheetPlan& plan) {
  Pages onCover;
  Pages beyondEnd;
  for (const int page : job.list) {
    if (!job.inserts || isBodyPage(job, page)) continue;
    (page <= job.pages ? onCover : beyondEnd).push_back(page);
  }
  std::vector<SheetWarning> expected;
  if (job.covers && !knowsCoverValue(job.coverValue))
    expected.push_back({Kind::UnknownCoverSides, {}, std::to_string(job.coverValue)});
  if (!onCover.empty()) expected.push_back({Kind::PageOnCover, onCover, ""});
  if (!beyondEnd.empty()) expected.push_back({Kind::PageBeyondEnd, beyondEnd, ""});
  return plan.warnings == expected;
}

struct Rule {
  const char* words;
  bool (*isKept)(const SheetJob& job, const SheetPlan& plan);
};

// The first two make the plan safe to look into for the others.
constexpr Rule kRules[] = {
    {"every sheet is whole", everySheetIsWhole},
    {"covers lie at both ends", coversLieAtBothEnds},
    {"every page comes out once and in order", everyPageComesOutOnceAndInOrder},
    {"the front cover takes the first pages", frontCoverTakesTheFirstPages},
    {"the back cover takes the last pages", backCoverTakesTheLastPages},
    {"every listed page of the body has its insert", everyListedPageOfTheBodyHasItsInsert},
    {"blank inserts precede a listed page", blankInsertsPrecedeAListedPage},
    {"printed inserts hold their listed page", printedInsertsHoldTheirListedPage},
    {"body sheets begin with a page", bodySheetsBeginWithAPage},
    {"backs stay blank for a reason only", backsStayBlankForAReasonOnly},
    {"media follow roles", mediaFollowRoles},
    {"blank sides have the size of a page", blankSidesHaveTheSizeOfAPage},
    {"listed pages without an insert are named", listedPagesWithoutAnInsertAreNamed}};

}  // namespace

SheetOrder orderOf(const SheetJob& job) {
  Options options = job.twoSided ? kTwoSided : kOneSided;
  if (job.covers)
    options = options + covers(std::to_string(job.column), std::to_string(job.coverValue));
  if (job.inserts) {
    std::string list;
    for (const int page : job.list)
      list += std::to_string(page) + ",";
    options = options + inserts(std::to_string(job.insertValue), list);
  }
  return orderOf(options);
}

const char* brokenRule(const SheetJob& job, const SheetPlan& plan) {
  for (const Rule& rule : kRules)
    if (!rule.isKept(job, plan)) return rule.words;
  return nullptr;
}

const char* brokenPromise(const SheetOrder& order, int pages) {
  SheetPlanner planner(order);
  const int mostKept = order.coverSides.backOutside + order.coverSides.backInside;
  int last = 0;
  SheetSide before;
  for (int page = 1; page <= pages + 1; ++page) {
    const bool atEnd = page > pages;
    const std::vector<SheetSide> sides = atEnd ? planner.finish() : planner.addPage();
    for (const SheetSide& side : sides) {
      const int next = last + 1;
      if (side.page != kBlankSide && side.page != next) return "pages are answered in order";
      if (side.page == page && &side != &sides.back()) return "the page that begins comes last";
      if (side.sizedAs != last && side.sizedAs != next) return "sizes are those of neighbours";
      if (side.sizedAs > std::min(page, pages)) return "sizes are known";
      if (side.sheet != before.sheet + (side.isBack ? 0 : 1)) return "a back follows its front";
      if (side.isBack && before.isBack) return "a sheet has one back";
      if (side.page != kBlankSide) last = side.page;
      before = side;
    }
    if (planner.keptPages() > (atEnd ? 0 : mostKept)) return "no page is kept longer than needed";
    if (last + planner.keptPages() != std::min(page, pages)) return "kept pages are counted";
  }
  return nullptr;
}

}  // namespace publishing
