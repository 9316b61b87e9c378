// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetWords.h"

#include <gmock/gmock.h>

#include "tests/printing/SheetJobs.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;

const Options kPapers = {{"CoverMediaType", "Coated"}, {"PageMediaType", "Tray2"}};

std::vector<std::string> words(const Options& options, std::optional<int> pages,
                               const PictureOptions& how = {}) {
  const JobSheets job = sheetsOf(options + kPapers, pages);
  std::vector<std::string> said;
  for (const PictureItem& item : pictureOf(job, how).items)
    said.push_back(wordsOf(job, item));
  return said;
}

TEST(SheetWords, NameThePaperAndBothSides) {
  EXPECT_THAT(words(kTwoSided + covers("2", "1") + inserts("1", "5"), 8),
              ElementsAre("Sheet 1: Coated Paper, front: page 1, back: blank",
                          "Sheet 2: Plain Paper (Tray 1), front: page 2, back: page 3",
                          "Sheet 3: Plain Paper (Tray 1), front: page 4, back: blank",
                          "Sheet 4: Tray 2, front: page 5, back: blank",
                          "Sheet 5: Plain Paper (Tray 1), front: page 6, back: page 7",
                          "Sheet 6: Plain Paper (Tray 1), front: page 8, back: blank",
                          "Sheet 7: Coated Paper, front: blank, back: blank"));
}

TEST(SheetWords, NameOneSideOfOneSidedJobs) {
  EXPECT_THAT(words(kOneSided + covers("1", "16") + inserts("0", "2"), 2),
              ElementsAre("Sheet 1: Coated Paper, blank", "Sheet 2: Plain Paper (Tray 1), page 1",
                          "Sheet 3: Tray 2, blank", "Sheet 4: Plain Paper (Tray 1), page 2"));
}

TEST(SheetWords, SumUpStacks) {
  EXPECT_THAT(words(kTwoSided, 11),
              ElementsAre("Sheets 1 to 5: Plain Paper (Tray 1), pages 1\u201310",
                          "Sheet 6: Plain Paper (Tray 1), front: page 11, back: blank"));
  EXPECT_THAT(words(kTwoSided + inserts("1", "2,3,4,5"), 5),
              ElementsAre("Sheet 1: Plain Paper (Tray 1), front: page 1, back: blank",
                          "Sheets 2 to 5: Tray 2, front: pages 2\u20135, back: blank"));
}

TEST(SheetWords, SayWhatIsNotShown) {
  std::string pages;
  for (int page = 2; page <= 300; ++page)
    pages += std::to_string(page) + ",";
  EXPECT_THAT(words(kOneSided + inserts("0", pages), 300, {.width = 200, .mostRows = 1}),
              ElementsAre("Sheet 1: Plain Paper (Tray 1), page 1", "Sheets 2 to 598: not shown",
                          "Sheet 599: Plain Paper (Tray 1), page 300"));
}

TEST(SheetWords, DoNotCountWhatIsNotKnown) {
  EXPECT_THAT(words(kTwoSided + covers("2", "5"), std::nullopt),
              ElementsAre("Sheet 1: Coated Paper, front: page 1, back: blank",
                          "More sheets: Plain Paper (Tray 1), pages 2\u2013\u2026",
                          "Last sheet: Coated Paper, front: blank, back: page n"));
}

TEST(SheetWords, NameThePaperThatThePrinterTakes) {
  const Options options = kOneSided + covers("1", "1") + Options{{"CoverMediaType", "PrnDef"}};
  const JobSheets job = sheetsOf(options, 1);
  EXPECT_EQ(wordsOf(job, pictureOf(job, {}).items.front()),
            "Sheet 1: Plain Paper (Tray 1), page 1");
}

}  // namespace
}  // namespace publishing
