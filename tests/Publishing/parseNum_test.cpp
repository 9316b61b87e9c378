// SPDX-License-Identifier: Apache-2.0
#include "Publishing/parseNum.h"

#include <climits>
#include <numeric>
#include <ostream>
#include <stdexcept>

#include <gmock/gmock.h>

namespace publishing {
namespace {

using ::testing::ElementsAre;
using Pages = std::vector<std::int32_t>;

constexpr std::int64_t kBothFrontSides = 3;

// The pages from `first` to `last`.
Pages run(std::int32_t first, std::int32_t last) {
  Pages pages(static_cast<std::size_t>(last - first + 1));
  std::iota(pages.begin(), pages.end(), first);
  return pages;
}

Pages operator+(Pages left, const Pages& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

struct Case {
  const char* name;
  std::string text;
  std::int32_t result;
  Pages pages = {};
  bool duplex = false;
  std::int64_t coverMode = 0;
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << '"' << tried.text << '"';
}

class PageList : public ::testing::TestWithParam<Case> {};

TEST_P(PageList, GivesResultAndPages) {
  const Case& tried = GetParam();
  Pages pages = {99};
  std::int32_t count = 99;
  EXPECT_EQ(ParsePageNumber(tried.text, &pages, &count, tried.duplex, tried.coverMode, kHighestPage,
                            kMostPages),
            tried.result);
  EXPECT_EQ(pages, tried.pages);
  EXPECT_EQ(count, std::ssize(tried.pages));
}

std::string caseName(const ::testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Items, PageList,
    ::testing::Values(Case{"EmptyTextHasNoPages", "", 0}, Case{"CommasAloneHaveNoPages", ",,,", 0},
                      Case{"EmptyItemsAreSkipped", ",,5,,8,", 0, {5, 8}},
                      Case{"SinglePage", "7", 0, {7}},
                      Case{"MixedList", "5,8,12-14", 0, {5, 8, 12, 13, 14}},
                      Case{"PagesAreSorted", "9,2,30,4", 0, {2, 4, 9, 30}},
                      Case{"RepeatedPageCountsOnce", "7,3,7,5", 0, {3, 5, 7}},
                      Case{"OverlappingRangesMerge", "3-5,4-6", 0, {3, 4, 5, 6}},
                      Case{"PageWithinEarlierRange", "3-5,4", 0, {3, 4, 5}},
                      Case{"LeadingZerosOfAPage", "007", 0, {7}},
                      Case{"LeadingZerosOfARange", "02-04", 0, {2, 3, 4}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Grammar, PageList,
    ::testing::Values(Case{"BlankBefore", " 5", -1}, Case{"BlankAfter", "5 ", -1},
                      Case{"BlankBeforeDash", "5 -7", -1}, Case{"BlankAfterDash", "5- 7", -1},
                      Case{"Letter", "x", -1}, Case{"LetterInPage", "1a", -1},
                      Case{"SecondDashAtOnce", "5--7", -1}, Case{"SecondDashLater", "2-3-4", -1},
                      Case{"Plus", "+5", -1}, Case{"OtherDigits", "\u0665", -1},
                      Case{"BytesThatAreNoText", "\xff\xfe", -1},
                      Case{"DashAloneStartsAtZero", "-", -2}, Case{"RangeWithoutStart", "-5", -2},
                      Case{"RangeWithoutEnd", "5-", -4}, Case{"RangeOfOnePage", "5-5", -4},
                      Case{"RangeDescends", "9-5", -4},
                      Case{"FaultAfterAPageKeepsThePage", "4,x", -1, {4}},
                      Case{"FaultLeavesPagesUnsorted", "9,4,x", -1, {9, 4}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Bounds, PageList,
    ::testing::Values(Case{"ZeroIsTooLow", "0", -2}, Case{"OneIsTooLow", "1", -2},
                      Case{"TwoIsLowest", "2", 0, {2}},
                      Case{"FiveHundredElevenIsHighest", "511", 0, {511}},
                      Case{"FiveHundredTwelveIsTooHigh", "512", -2},
                      Case{"RangeMustNotStartAtHighest", "511-512", -2},
                      Case{"RangeUpToHighest", "510-511", 0, {510, 511}},
                      Case{"RangeBeyondHighest", "510-512", -2}, Case{"RangeFromOne", "1-3", -2},
                      Case{"StartIsJudgedBeforeEnd", "0-600", -2},
                      Case{"EndOutOfBounds", "9-600", -2},
                      Case{"StartOutOfBoundsBeforeOrder", "600-9", -2},
                      Case{"StartOutOfBoundsBeforeMalformedEnd", "600-x", -2},
                      Case{"MalformedEndBeforeOrder", "9-x", -1},
                      Case{"NumberBeyond32Bits", "4294967298", -2},  // 2 if it wrapped around
                      Case{"NumberBeyond64Bits", "18446744073709551618", -2},
                      Case{"DigitsWithoutEnd", std::string(100000, '9'), -2},
                      Case{"RangeStartWithoutEnd", std::string(100000, '9') + "-5", -2},
                      Case{"RangeEndWithoutEnd", "5-" + std::string(100000, '9'), -2},
                      Case{"LeadingZerosWithoutEnd", std::string(100000, '0') + "7", 0, {7}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    PrintedFrontCover, PageList,
    ::testing::Values(
        Case{"OneSidedPageTwoIsTooLow", "2", -2, {}, false, kBothFrontSides},
        Case{"OneSidedRangeMayStartAtTwo", "2-4", 0, {2, 3, 4}, false, kBothFrontSides},
        Case{"TwoSidedPageTwoIsTooLow", "2", -2, {}, true, kBothFrontSides},
        Case{"TwoSidedRangeMustNotStartAtTwo", "2-4", -2, {}, true, kBothFrontSides},
        Case{"TwoSidedRangeFromThree", "3-4", 0, {3, 4}, true, kBothFrontSides},
        Case{"PageThree", "3", 0, {3}, true, kBothFrontSides},
        Case{"OutsideAlone", "2,2-3", 0, {2, 3}, true, 1},
        Case{"InsideAlone", "2,2-3", 0, {2, 3}, true, 2},
        Case{"AllFourSides", "2", -2, {}, true, 15}, Case{"BackSidesAlone", "2", 0, {2}, true, 12},
        Case{"CoverLeftBlank", "2", 0, {2}, true, 32}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Capacity, PageList,
    ::testing::Values(
        Case{"TenSinglePages", "2,3,4,5,6,7,8,9,10,11", 0, run(2, 11)},
        Case{"EleventhSinglePage", "2,3,4,5,6,7,8,9,10,11,12", -3, run(2, 11)},
        Case{"RepeatedPagesTakeNone", "2,3,4,5,6,7,8,9,10,11,2,11", 0, run(2, 11)},
        Case{"RepeatedPageIsFoundBeforeCapacityRunsOut", "2,3,4,5,6,7,8,9,10,11,5", 0, run(2, 11)},
        Case{"BoundsAreJudgedBeforeCapacity", "2,3,4,5,6,7,8,9,10,11,512", -2, run(2, 11)},
        Case{"RangeOfTen", "2-11", 0, run(2, 11)}, Case{"RangeOfEleven", "2-12", -3},
        Case{"RangesTakeNone", "2-10,12-20", 0, run(2, 10) + run(12, 20)},
        Case{"RangeThenTenSinglePages", "2-11,20,21,22,23,24,25,26,27,28,29", 0,
             run(2, 11) + run(20, 29)},
        Case{"RangeMustFitWhatSinglePagesLeave", "2,3,10-18", -3, {2, 3}},
        Case{"RangeThatJustFits", "2,3,10-17", 0, {2, 3, 10, 11, 12, 13, 14, 15, 16, 17}},
        Case{"RangeOfTwoWithOneLeft", "2,3,4,5,6,7,8,9,10,20-21", -3, run(2, 10)}),
    caseName);

TEST(PageListText, AbsentIsMalformedAndLeavesTheCount) {
  Pages pages = {4};
  std::int32_t count = 42;
  EXPECT_EQ(ParsePageNumber(std::nullopt, &pages, &count, false, 0, kHighestPage, kMostPages), -1);
  EXPECT_EQ(count, 42);
}

TEST(PageListText, EndsAtNUL) {
  Pages pages;
  std::int32_t count = 0;
  const std::string text("5\0,x", 4);
  EXPECT_EQ(ParsePageNumber(text, &pages, &count, false, 0, kHighestPage, kMostPages), 0);
  EXPECT_THAT(pages, ElementsAre(5));
}

TEST(PageListPages, HoldEveryPageThatRangesYield) {
  std::string text;
  for (int start = 2; start <= 502; start += 10) {
    text += std::to_string(start) + "-" + std::to_string(std::min(start + 9, 511)) + ",";
  }
  Pages pages;
  std::int32_t count = 0;
  EXPECT_EQ(ParsePageNumber(text, &pages, &count, false, 0, kHighestPage, kMostPages), 0);
  EXPECT_EQ(pages, run(2, 511));
  EXPECT_EQ(count, 510);
}

TEST(PageListPages, MayBeNullThenRepeatedPagesCountAgain) {
  std::int32_t count = 0;
  EXPECT_EQ(ParsePageNumber("7,7,3-5,3-5", nullptr, &count, false, 0, kHighestPage, kMostPages), 0);
  EXPECT_EQ(count, 8);
}

TEST(PageListBounds, AreThoseGiven) {
  Pages pages;
  std::int32_t count = 0;
  EXPECT_EQ(ParsePageNumber("20", &pages, &count, false, 0, 19, 1), -2);
  EXPECT_EQ(ParsePageNumber("18,19", &pages, &count, false, 0, 19, 1), -3);
  EXPECT_EQ(ParsePageNumber("18", &pages, &count, false, 0, 19, 0), -3);
  EXPECT_EQ(ParsePageNumber("18", &pages, &count, false, 0, 19, -5), -3);
}

TEST(PageListBounds, HugeNumbersAreBeyondEvenTheLargestBound) {
  Pages pages;
  std::int32_t count = 0;
  EXPECT_EQ(ParsePageNumber("2147483647", &pages, &count, false, 0, INT_MAX, 1), 0);
  EXPECT_THAT(pages, ElementsAre(INT_MAX));
  EXPECT_EQ(ParsePageNumber("2147483648", &pages, &count, false, 0, INT_MAX, 1), -2);
  EXPECT_EQ(ParsePageNumber("2147483647,2147483648", &pages, &count, false, 0, INT_MAX, 9), -2);
}

TEST(DigitTest, HoldsForDigitsOnly) {
  const std::vector<std::pair<const char*, bool>> cases = {
      {"", true},    {"0", true},   {"0123456789", true}, {"12-3", false},   {" 1", false},
      {"1 ", false}, {"/", false},  {":", false},         {"\u0661", false}, {"\xb0", false},
      {"a", false},  {"1x", false}, {"x1", false},        {"1\xff", false},  {"-1", false}};
  for (const auto& [text, valid] : cases)
    EXPECT_EQ(isValidNumber(text), valid) << '"' << text << '"';
}

TEST(GuardedScan, AnswersWhatTheScanAnswers) {
  EXPECT_TRUE(guardedScan([] { return true; }));
  EXPECT_FALSE(guardedScan([] { return false; }));
}

TEST(GuardedScan, LogsAnExceptionAndAnswersFalse) {
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(guardedScan([]() -> bool { throw std::out_of_range("index 7"); }));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Exception occurred: index 7\n");
}

TEST(GuardedScan, LetsOtherKindsPass) {
  EXPECT_THROW(guardedScan([]() -> bool { throw 7; }), int);
}

TEST(DuplicateTest, LooksAtTheEntriesCountedOnly) {
  const Pages pages = {5, 8, 12};
  EXPECT_TRUE(isExist(pages.data(), 3, 5));
  EXPECT_TRUE(isExist(pages.data(), 3, 12));
  EXPECT_FALSE(isExist(pages.data(), 2, 12));
  EXPECT_FALSE(isExist(pages.data(), 3, 9));
  EXPECT_FALSE(isExist(pages.data(), 0, 5));
  EXPECT_FALSE(isExist(nullptr, 3, 5));
}

TEST(InsertionSort, SortsAscending) {
  const std::vector<std::pair<Pages, Pages>> cases = {
      {{}, {}},
      {{4}, {4}},
      {{3, 2, 1}, {1, 2, 3}},
      {{1, 2, 3}, {1, 2, 3}},
      {{7, 3, 7, INT_MIN, -1, INT_MAX, 0}, {INT_MIN, -1, 0, 3, 7, 7, INT_MAX}}};
  for (const auto& [given, sorted] : cases) {
    Pages numbers = given;
    insertion_sort(numbers.data(), static_cast<std::int32_t>(numbers.size()));
    EXPECT_EQ(numbers, sorted);
  }
}

TEST(InsertionSort, TouchesOnlyTheLengthGiven) {
  Pages numbers = {3, 2, 1};
  insertion_sort(numbers.data(), 2);
  EXPECT_THAT(numbers, ElementsAre(2, 3, 1));
  insertion_sort(nullptr, 0);
}

}  // namespace
}  // namespace publishing
