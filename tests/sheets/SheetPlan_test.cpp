// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPlan.h"

#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>

#include "tests/sheets/SheetExamples.h"
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Kind = SheetWarning::Kind;

using Case = SheetExample;

std::string caseName(const ::testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

class SheetsOfAJob : public ::testing::TestWithParam<Case> {};

TEST_P(SheetsOfAJob, ComeOutLikeThis) {
  const Case& tried = GetParam();
  EXPECT_EQ(printed(planSheets(orderOf(tried.options), tried.pages)), tried.sheets);
}

INSTANTIATE_TEST_SUITE_P(Examples, SheetsOfAJob, ::testing::ValuesIn(sheetExamples()), caseName);

// How a table cell of a document says it.
std::string inTableCell(std::string text) {
  for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2)
    text.replace(at, 1, "\\|");
  return "| `" + text + "` |";
}

TEST(SheetPlan, ItsExamplesAreThoseOfTheDocument) {
  std::ifstream file(TEST_DATA "/../../docs/sheets.md");
  const std::string document((std::istreambuf_iterator<char>(file)), {});
  for (const Case& example : sheetExamples())
    EXPECT_THAT(document, HasSubstr(inTableCell(example.sheets)));
}

INSTANTIATE_TEST_SUITE_P(
    Covers, SheetsOfAJob,
    ::testing::Values(Case{"NoPagesNoSheets", 0, kTwoSided + covers("2", "15"), ""},
                      Case{"NoPagesNoSheetsOneSided", 0, kOneSided + covers("2", "32"), ""},
                      Case{"BlankFrontCover", 3, kTwoSided + covers("1", "16"), "C-|- B1|2 B3|-"},
                      Case{"BlankCovers", 3, kTwoSided + covers("2", "32"), "C-|- B1|2 B3|- C-|-"},
                      Case{"NoSideTicked", 1, kTwoSided + covers("2", "0"), "C-|- B1|- C-|-"},
                      Case{"BothFrontSides", 4, kTwoSided + covers("1", "3"), "C1|2 B3|4"},
                      Case{"OnePageForBothFrontSides", 1, kTwoSided + covers("1", "3"), "C1|-"},
                      Case{"OnePageForFourSides", 1, kTwoSided + covers("2", "15"), "C1|- C-|-"},
                      Case{"TwoPagesForFourSides", 2, kTwoSided + covers("2", "15"), "C1|2 C-|-"},
                      Case{"ThreePagesForFourSides", 3, kTwoSided + covers("2", "15"), "C1|2 C-|3"},
                      Case{"FourPagesForFourSides", 4, kTwoSided + covers("2", "15"), "C1|2 C3|4"},
                      Case{"OnePageForFrontInside", 1, kTwoSided + covers("2", "14"), "C-|1 C-|-"},
                      Case{"BackInside", 3, kTwoSided + covers("2", "8"), "C-|- B1|2 C3|-"},
                      Case{"BothBackSides", 4, kTwoSided + covers("2", "12"), "C-|- B1|2 C3|4"},
                      Case{"NoBodyBetween", 2, kTwoSided + covers("2", "9"), "C1|- C2|-"},
                      Case{"BackSidesDoNotCountWithAFrontCoverOnly", 3,
                           kTwoSided + covers("1", "13"), "C1|- B2|3"},
                      Case{"ShortEdgeIsTwoSidedToo", 2,
                           Options{{"sides", "two-sided-short-edge"}} + covers("1", "2"),
                           "C-|1 B2|-"},
                      Case{"OneSidedLeavesOutSidesThatFaceDown", 4, kOneSided + covers("2", "6"),
                           "C- B1 B2 B3 B4 C-"},
                      Case{"OneSidedAllSides", 4, kOneSided + covers("2", "15"), "C1 B2 B3 C4"},
                      Case{"OneSidedOnePage", 1, kOneSided + covers("2", "15"), "C1 C-"},
                      Case{"OneSidedFrontOnly", 2, kOneSided + covers("1", "15"), "C1 B2"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Inserts, SheetsOfAJob,
    ::testing::Values(
        Case{"FirstPage", 3, kTwoSided + inserts("0", "1"), "I-|- B1|2 B3|-"},
        Case{"FirstPageOneSided", 2, kOneSided + inserts("0", "1"), "I- B1 B2"},
        Case{"PrintedOnFront", 5, kTwoSided + inserts("1", "3"), "B1|2 I3|- B4|5"},
        Case{"PrintedOnFrontAfterAFront", 4, kTwoSided + inserts("1", "2"), "B1|- I2|- B3|4"},
        Case{"PrintedOnBack", 5, kTwoSided + inserts("2", "3"), "B1|2 I-|3 B4|5"},
        Case{"PrintedOnBothSides", 5, kTwoSided + inserts("3", "3"), "B1|2 I3|4 B5|-"},
        Case{"BackStaysBlankBeforeAListedPage", 4, kTwoSided + inserts("3", "2,3"),
             "B1|- I2|- I3|4"},
        Case{"BackStaysBlankBeforeTheBackCover", 4,
             kTwoSided + covers("2", "4") + inserts("3", "3"), "C-|- B1|2 I3|- C-|4"},
        Case{"LastPageOnBothSides", 3, kTwoSided + inserts("3", "3"), "B1|2 I3|-"},
        Case{"ConsecutiveBlankInserts", 3, kTwoSided + inserts("0", "2,3"),
             "B1|- I-|- B2|- I-|- B3|-"},
        Case{"AfterBothFrontSides", 4, kTwoSided + covers("1", "3") + inserts("0", "3"),
             "C1|2 I-|- B3|4"},
        Case{"AfterAFrontCoverWithABlankInside", 3,
             kTwoSided + covers("1", "1") + inserts("2", "2"), "C1|- I-|2 B3|-"},
        Case{"OneSidedBlank", 3, kOneSided + inserts("0", "2"), "B1 I- B2 B3"},
        Case{"OneSidedBackIsABlankInsert", 3, kOneSided + inserts("2", "2"), "B1 I- B2 B3"},
        Case{"OneSidedFront", 3, kOneSided + inserts("1", "2"), "B1 I2 B3"},
        Case{"OneSidedBothPrintsTheFront", 3, kOneSided + inserts("3", "2"), "B1 I2 B3"},
        Case{"RepeatedPageGetsOneInsert", 2, kOneSided + inserts("0", "2,2,2,"), "B1 I- B2"},
        Case{"UncollatedCopiesOfEachSheet", 2,
             kOneSided + inserts("0", "2") + Options{{"copies", "2"}}, "B1 B1 I- I- B2 B2"}),
    caseName);

TEST(SheetPlan, SheetsOfCoversAndInsertsHaveTheirMedium) {
  const SheetPlan plan = planSheets(orderOf(kOneSided + covers("2", "9") + inserts("0", "2")), 3);
  std::vector<std::string> media;
  for (const Sheet& sheet : plan.sheets)
    media.push_back(mediumName(sheet.medium, "Tray1/Plain"));
  EXPECT_THAT(media, ElementsAre("Leather", "Thick", "Tray1/Plain", "Leather"));
}

TEST(SheetPlan, RolesHaveTheirNames) {
  const SheetPlan plan = planSheets(orderOf(kOneSided + covers("2", "9") + inserts("0", "2")), 3);
  std::vector<std::string> roles;
  for (const Sheet& sheet : plan.sheets)
    roles.emplace_back(nameOf(sheet.role));
  EXPECT_THAT(roles, ElementsAre("front-cover", "insert", "body", "back-cover"));
}

std::vector<int> sizes(const Options& options, int pages) {
  std::vector<int> sizes;
  for (const Sheet& sheet : planSheets(orderOf(options), pages).sheets)
    sizes.push_back(sheet.sizedAs);
  return sizes;
}

TEST(SheetPlan, ABlankSideHasTheSizeOfThePageOnItsSheet) {
  EXPECT_THAT(sizes(kTwoSided + covers("2", "6"), 4), ElementsAre(1, 2, 4));   // C-|1 B2|3 C-|4
  EXPECT_THAT(sizes(kTwoSided + inserts("2", "2"), 3), ElementsAre(1, 2, 3));  // B1|- I-|2 B3|-
}

TEST(SheetPlan, ABlankSheetHasTheSizeOfTheNextPage) {
  EXPECT_THAT(sizes(kTwoSided + covers("1", "16") + inserts("0", "1,3"), 3),
              ElementsAre(1, 1, 1, 3, 3));  // C-|- I-|- B1|2 I-|- B3|-
}

TEST(SheetPlan, ABlankSheetAtTheEndHasTheSizeOfTheLastPage) {
  EXPECT_THAT(sizes(kTwoSided + covers("2", "32"), 3), ElementsAre(1, 1, 3, 3));
  EXPECT_THAT(sizes(kOneSided + covers("2", "1"), 1), ElementsAre(1, 1));
}

TEST(SheetPlan, TotalsCountTheSheetsOfEachMediumInAllCopies) {
  const Options job = kTwoSided + covers("2", "1") + inserts("0", "4,6") + Options{{"copies", "3"}};
  const SheetPlan plan = planSheets(orderOf(job), 8);  // C1|- B2|3 I-|- B4|5 I-|- B6|7 B8|- C-|-
  const std::vector<MediumTotal> totals = {{"Leather", 6}, {"", 12}, {"Thick", 6}};
  EXPECT_EQ(mediumTotals(plan), totals);
  EXPECT_EQ(mediumTotals(planSheets(orderOf(job + Options{{"Collate", "yes"}}), 8)), totals);
  EXPECT_EQ(plan.sheetCount(), 24);
}

TEST(SheetPlan, ManyCopiesOfManySheetsAreCounted) {
  const SheetPlan plan = planSheets(orderOf({{"copies", "2147483647"}}), 4);
  EXPECT_EQ(plan.sheetCount(), 4LL * 2147483647);
  EXPECT_THAT(mediumTotals(plan), ElementsAre(MediumTotal{"", 4LL * 2147483647}));
}

TEST(SheetPlan, SheetsOnTheMediumOfTheBodyAreCountedWithIt) {
  const SheetPlan plan =
      planSheets(orderOf(kOneSided + covers("1", "1") + Options{{"CoverMediaType", "PrnDef"}}), 3);
  EXPECT_THAT(mediumTotals(plan), ElementsAre(MediumTotal{"", 3}));
}

TEST(SheetPlan, RunsAreNeighboursOnOneMedium) {
  const SheetPlan plan = planSheets(orderOf(kTwoSided + covers("2", "1") + inserts("1", "4,5")), 8);
  ASSERT_EQ(written(plan.sheets), "C1|- B2|3 I4|- I5|- B6|7 B8|- C-|-");
  EXPECT_THAT(mediumRuns(plan),
              ElementsAre(MediumRun{"Leather", 0, 1}, MediumRun{"", 1, 1}, MediumRun{"Thick", 2, 2},
                          MediumRun{"", 4, 2}, MediumRun{"Leather", 6, 1}));
}

TEST(SheetPlan, AJobWithoutPagesHasNoRunsAndNoTotals) {
  const SheetPlan plan = planSheets(orderOf(covers("2", "15")), 0);
  EXPECT_THAT(mediumRuns(plan), IsEmpty());
  EXPECT_THAT(mediumTotals(plan), IsEmpty());
  EXPECT_EQ(plan.sheetCount(), 0);
}

TEST(SheetPlan, ListedPagesOnACoverAreNamed) {
  const SheetPlan plan =
      planSheets(orderOf(kTwoSided + covers("2", "7") + inserts("0", "1,2,3,9,10")), 10);
  EXPECT_EQ(written(plan.sheets), "C1|2 I-|- B3|4 B5|6 B7|8 I-|- B9|- C-|10");
  EXPECT_THAT(plan.warnings, ElementsAre(SheetWarning{Kind::PageOnCover, {1, 2, 10}, ""}));
}

TEST(SheetPlan, ListedPagesBeyondTheEndAreNamed) {
  const SheetPlan plan = planSheets(orderOf(kOneSided + inserts("1", "2,4,400,2147483647")), 3);
  EXPECT_EQ(written(plan.sheets), "B1 I2 B3");
  EXPECT_THAT(plan.warnings,
              ElementsAre(SheetWarning{Kind::PageBeyondEnd, {4, 400, 2147483647}, ""}));
}

TEST(SheetPlan, APageThatACoverHasNoPageForIsBeyondTheEnd) {
  const SheetPlan plan =
      planSheets(orderOf(kTwoSided + covers("2", "15") + inserts("0", "1,2")), 1);
  EXPECT_THAT(plan.warnings, ElementsAre(SheetWarning{Kind::PageOnCover, {1}, ""},
                                         SheetWarning{Kind::PageBeyondEnd, {2}, ""}));
}

TEST(SheetPlan, WarningsOfTheOrderComeFirst) {
  const SheetPlan plan = planSheets(orderOf(kOneSided + inserts("0", "x,9")), 1);
  EXPECT_THAT(plan.warnings, ElementsAre(SheetWarning{Kind::UnreadablePages, {}, "x"},
                                         SheetWarning{Kind::PageBeyondEnd, {9}, ""}));
}

TEST(SheetPlan, APageThatGetsItsInsertIsNoWarning) {
  const SheetPlan plan =
      planSheets(orderOf(kTwoSided + covers("2", "5") + inserts("0", "2,9")), 10);
  EXPECT_THAT(plan.warnings, IsEmpty());
}

}  // namespace
}  // namespace publishing
