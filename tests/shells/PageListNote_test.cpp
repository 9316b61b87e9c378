// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListNote.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using testing::HasSubstr;
using Kind = FieldNote::Kind;

constexpr PageListRules kPlain;

JobSheets sheetsOfDocument(int pages, std::vector<SheetWarning> warnings = {}) {
  JobSheets sheets;
  sheets.plan = SheetPlan();
  sheets.plan->warnings = std::move(warnings);
  sheets.pages = pages;
  return sheets;
}

TEST(PageListNote, FindsThePlaceOfAnEdit) {
  EXPECT_EQ(placeOfEdit("", ""), 0U);
  EXPECT_EQ(placeOfEdit("", "5"), 1U);
  EXPECT_EQ(placeOfEdit("5,8", "5,8,"), 4U);
  EXPECT_EQ(placeOfEdit("5,8", "5,12-,8"), 5U);
  EXPECT_EQ(placeOfEdit("12-14", "12-1"), 4U);
  EXPECT_EQ(placeOfEdit("5,12,8", "12,8"), 0U);
  EXPECT_EQ(placeOfEdit("5,8", ""), 0U);
}

TEST(PageListNote, HintsAtTheTrueLimits) {
  const std::string counts =
      "Up to 10 single pages, and ranges of up to 10 pages, one less for each single page before "
      "them.";
  EXPECT_EQ(noteOnPages("", kPlain, {}, {}), (FieldNote{Kind::Hint, "Pages 2 to 511. " + counts}));
  EXPECT_EQ(noteOnPages("5,8", kPlain, {}, {}).text, "Pages 2 to 511. " + counts);
  EXPECT_EQ(noteOnPages("5,8", {true, 3}, {}, {}).text, "Pages 3 to 511. " + counts);
  EXPECT_EQ(noteOnPages("5,8", kPlain, sheetsOfDocument(24), {}).text, "Pages 2 to 24. " + counts);
  EXPECT_THAT(hintOnPages(kPlain, sheetsOfDocument(2)).text, HasSubstr("Pages 2 to 2."));
  EXPECT_THAT(hintOnPages(kPlain, sheetsOfDocument(1)).text, HasSubstr("Pages 2 to 511."));
  EXPECT_THAT(hintOnPages(kPlain, sheetsOfDocument(600)).text, HasSubstr("Pages 2 to 511."));
}

TEST(PageListNote, IsNoFaultWhileTheEntryIsBeingTyped) {
  EXPECT_EQ(noteOnPages("12-", kPlain, {}, 3),
            (FieldNote{Kind::Unfinished, "“12-”: the range must end at page 13 to 21."}));
  EXPECT_EQ(noteOnPages("12-,8", kPlain, {}, 3).kind, Kind::Unfinished);
  // The next entry is being typed, or none.
  EXPECT_EQ(noteOnPages("12-,", kPlain, {}, 4).kind, Kind::Fault);
  EXPECT_EQ(noteOnPages("12-", kPlain, {}, std::nullopt).kind, Kind::Fault);
  // More does not make it good.
  EXPECT_EQ(noteOnPages("12--", kPlain, {}, 4).kind, Kind::Fault);
}

TEST(PageListNote, NamesPagesThatGetNoSheet) {
  using Warning = SheetWarning::Kind;
  EXPECT_EQ(
      noteOnPages("5,30", kPlain, sheetsOfDocument(24, {{Warning::PageBeyondEnd, {30}, ""}}), {}),
      (FieldNote{Kind::Remark, "No insert for page 30: the last page is 24."}));
  EXPECT_EQ(noteOnPages("24,30-32", kPlain,
                        sheetsOfDocument(24, {{Warning::PageOnCover, {24}, ""},
                                              {Warning::PageBeyondEnd, {30, 31, 32}, ""}}),
                        {})
                .text,
            "No insert for page 24: it is printed on a cover. No inserts for pages 30–32: the last "
            "page is 24.");
  // A fault comes first: with it nothing is printed at all.
  EXPECT_EQ(
      noteOnPages("1,30", kPlain, sheetsOfDocument(24, {{Warning::PageBeyondEnd, {30}, ""}}), {})
          .kind,
      Kind::Fault);
}

}  // namespace
}  // namespace publishing
