// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPlanner.h"

#include <gmock/gmock.h>

#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What is answered to each page, and at the end.
std::vector<std::string> answers(const Options& options, int pages) {
  SheetPlanner planner(orderOf(options));
  std::vector<std::string> answers;
  for (int page = 1; page <= pages; ++page)
    answers.push_back(written(planner.addPage()));
  answers.push_back(written(planner.finish()));
  return answers;
}

TEST(SheetPlanner, PagesOfAPlainJobAreAnsweredAtOnce) {
  EXPECT_THAT(answers(kTwoSided, 3), ElementsAre("B1", "2", "B3", "-"));
  EXPECT_THAT(answers(kOneSided, 2), ElementsAre("B1", "B2", ""));
}

TEST(SheetPlanner, WithoutABackCoverNothingIsKept) {
  EXPECT_THAT(answers(kTwoSided + covers("1", "3") + inserts("0", "4"), 5),
              ElementsAre("C1", "2", "B3", "- I- - B4", "5", ""));
}

TEST(SheetPlanner, PagesForTheBackCoverAreKept) {
  EXPECT_THAT(answers(kTwoSided + covers("2", "4"), 3), ElementsAre("C-", "- B1", "2", "C- 3"));
  EXPECT_THAT(answers(kTwoSided + covers("2", "13"), 5),
              ElementsAre("C1", "", "", "- B2", "3", "C4 5"));
}

TEST(SheetPlanner, ABlankBackCoverKeepsNothing) {
  EXPECT_THAT(answers(kTwoSided + covers("2", "1"), 2), ElementsAre("C1", "- B2", "- C- -"));
}

TEST(SheetPlanner, TheBackOfAnInsertStaysOpenForTheNextPage) {
  EXPECT_THAT(answers(kTwoSided + inserts("3", "2"), 3), ElementsAre("B1", "- I2", "3", ""));
}

TEST(SheetPlanner, AJobWithoutPagesHasNoAnswer) {
  EXPECT_THAT(answers(kTwoSided + covers("2", "15"), 0), ElementsAre(""));
}

TEST(SheetPlanner, SidesNameTheirSheetAndThePageThatGivesTheirSize) {
  SheetPlanner planner(orderOf(kTwoSided + covers("1", "16")));
  const std::vector<SheetSide> first = {
      {1, SheetRole::FrontCover, false, 0, 1},
      {1, SheetRole::FrontCover, true, 0, 1},
      {2, SheetRole::Body, false, 1, 1},
  };
  EXPECT_EQ(planner.addPage(), first);
  EXPECT_THAT(planner.addPage(), ElementsAre(SheetSide{2, SheetRole::Body, true, 2, 2}));
  EXPECT_THAT(planner.addPage(), ElementsAre(SheetSide{3, SheetRole::Body, false, 3, 3}));
  EXPECT_THAT(planner.finish(), ElementsAre(SheetSide{3, SheetRole::Body, true, 0, 3}));
}

TEST(SheetPlanner, KeptPagesAreCounted) {
  SheetPlanner planner(orderOf(kTwoSided + covers("2", "13")));
  EXPECT_EQ(planner.keptPages(), 0);
  planner.addPage();
  EXPECT_EQ(planner.keptPages(), 0);  // outside of the front cover
  planner.addPage();
  EXPECT_EQ(planner.keptPages(), 1);
  planner.addPage();
  planner.addPage();
  EXPECT_EQ(planner.keptPages(), 2);
  planner.finish();
  EXPECT_EQ(planner.keptPages(), 0);
}

}  // namespace
}  // namespace publishing
