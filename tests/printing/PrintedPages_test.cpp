// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintedPages.h"

#include <limits>
#include <ostream>

#include <gtest/gtest.h>

namespace publishing {
namespace {

struct Case {
  const char* name;
  int pages;
  std::map<std::string, std::string> options;
  std::optional<int> printed;
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << tried.name;
}

// What cups-filters' pdftopdf makes of a document with 24 pages was counted with cupsfilter.
const Case kCases[] = {
    {"AllWithoutOptions", 24, {}, 24},
    {"ARange", 24, {{"page-ranges", "2-5"}}, 4},
    {"ARangeBeyondTheEnd", 24, {{"page-ranges", "20-40"}}, 5},
    {"ARangeWithoutAnEnd", 24, {{"page-ranges", "22-"}}, 3},
    {"ARangeWithoutABeginning", 24, {{"page-ranges", "-3"}}, 3},
    {"OnePageTwice", 24, {{"page-ranges", "1,3,3"}}, 2},
    {"NoPage", 24, {{"page-ranges", "40-50"}}, 0},
    {"FourOnASide", 24, {{"number-up", "4"}}, 6},
    {"FourOnASideAndSomeLeftOver", 25, {{"number-up", "4"}}, 7},
    {"RangesChooseSides", 24, {{"number-up", "4"}, {"page-ranges", "2-3"}}, 2},
    {"OddPages", 24, {{"page-set", "odd"}}, 12},
    {"EvenPagesOfARange", 24, {{"page-set", "even"}, {"page-ranges", "2-9"}}, 4},
    {"OddSides", 24, {{"number-up", "2"}, {"page-set", "odd"}}, 6},
    {"AllPagesInWords", 24, {{"page-set", "all"}}, 24},
    {"ABooklet", 24, {{"booklet", "true"}}, 12},
    {"ABookletWithBlankPages", 5, {{"booklet", "true"}}, 4},
    {"NoBooklet", 5, {{"booklet", "no"}}, 5},
    {"ARangeOfABooklet", 24, {{"booklet", "true"}, {"page-ranges", "1-2"}}, 2},
    {"NamesInAnyCase", 24, {{"Page-Ranges", "1-2"}}, 2},
    {"UnknownForARangeThatDescends", 24, {{"page-ranges", "5-3"}}, std::nullopt},
    {"UnknownForWhatIsNoRange", 24, {{"page-ranges", "2-3abc"}}, std::nullopt},
    {"UnknownForWhatIsNoNumber", 24, {{"number-up", "two"}}, std::nullopt},
    {"ManyPages", std::numeric_limits<int>::max(), {{"booklet", "true"}}, 1 << 30},
};

class PrintedPages : public ::testing::TestWithParam<Case> {};

TEST_P(PrintedPages, AreCountedAsTheFiltersPrintThem) {
  EXPECT_EQ(printedPages(GetParam().pages, GetParam().options), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(Jobs, PrintedPages, ::testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(PrintedPages, TellsWhetherPagesAreLeftOut) {
  EXPECT_TRUE(leavesOutPages({{"page-ranges", "1-2"}}));
  EXPECT_TRUE(leavesOutPages({{"page-set", "even"}}));
  EXPECT_FALSE(leavesOutPages({{"page-set", "all"}, {"number-up", "4"}}));
}

}  // namespace
}  // namespace publishing
