// SPDX-License-Identifier: Apache-2.0
#include "Publishing/NSStringMyExtension.h"

#include <climits>
#include <vector>

#include <gtest/gtest.h>

namespace publishing {
namespace {

constexpr int kAll = kCheckEmpty | kCheckLongerThan8 | kCheckNonDigits;

TEST(CheckFor, FailsOnTheTestsThatTheMaskSelects) {
  struct Case {
    std::string text;
    int mask;
    bool fails;
  };
  const std::vector<Case> cases = {
      {"", 0, false},
      {"anything", 0, false},
      {"longer than eight", 0, false},
      {"", kCheckEmpty, true},
      {"5", kCheckEmpty, false},
      {" ", kCheckEmpty, false},
      {"12345678", kCheckLongerThan8, false},
      {"123456789", kCheckLongerThan8, true},
      {"", kCheckLongerThan8, false},
      {"", kCheckNonDigits, false},
      {"0123456789", kCheckNonDigits, false},
      {"12-3", kCheckNonDigits, true},
      {"/", kCheckNonDigits, true},
      {":", kCheckNonDigits, true},
      {"12x", kCheckNonDigits, true},
      {"x12", kCheckNonDigits, true},
      {"\u0661", kCheckNonDigits, true},
      {"", kAll, true},
      {"123456789", kAll, true},
      {"12345678", kAll, false},
      {"1234-678", kAll, true},
      {"123456789", 8 | 16, false},
      {"x", -8, false},
  };
  for (const Case& tried : cases) {
    EXPECT_EQ(checkFor(tried.text, tried.mask), tried.fails)
        << '"' << tried.text << "\", " << tried.mask;
  }
}

TEST(CheckFor, CountsUTF16Units) {
  const std::string eightUmlauts = "äöüäöüäö";
  const std::string fourEmoji = "😀😀😀😀";
  EXPECT_FALSE(checkFor(eightUmlauts, kCheckLongerThan8));
  EXPECT_TRUE(checkFor(eightUmlauts + "ü", kCheckLongerThan8));
  EXPECT_FALSE(checkFor(fourEmoji, kCheckLongerThan8));
  EXPECT_TRUE(checkFor(fourEmoji + "1", kCheckLongerThan8));
}

TEST(CheckFor, SurvivesBytesThatAreNoText) {
  EXPECT_TRUE(checkFor("\xff\xfe", kCheckNonDigits));
  EXPECT_FALSE(checkFor("\xff\xfe", kCheckEmpty));
}

TEST(IntValue, ReadsTheLeadingNumber) {
  const std::vector<std::pair<std::string, std::int32_t>> cases = {
      {"", 0},
      {"7", 7},
      {"007", 7},
      {"-7", -7},
      {"+7", 7},
      {" \t\n7", 7},
      {"7 8", 7},
      {"12abc", 12},
      {"1:2", 1},  // the characters beside the digits
      {"1/2", 1},
      {"\b7", 0},  // and beside the blanks
      {"\0167", 0},
      {"\t\n\v\f\r 7", 7},
      {"abc", 0},
      {"-", 0},
      {"+-7", 0},
      {"- 7", 0},
      {"3.9", 3},
      {"1e3", 1},
      {"0x10", 0},
      {"2147483647", INT_MAX},
      {"2147483648", INT_MAX},
      {"-2147483648", INT_MIN},
      {"-2147483649", INT_MIN},
      {"99999999999999999999999999", INT_MAX},
      {"-99999999999999999999999999", INT_MIN},
  };
  for (const auto& [text, value] : cases)
    EXPECT_EQ(intValue(text), value) << '"' << text << '"';
}

}  // namespace
}  // namespace publishing
