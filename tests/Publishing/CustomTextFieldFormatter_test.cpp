// SPDX-License-Identifier: Apache-2.0
#include "Publishing/CustomTextFieldFormatter.h"

#include <vector>

#include <gtest/gtest.h>

namespace publishing {
namespace {

CustomTextFieldFormatter filtering() {
  CustomTextFieldFormatter formatter;
  formatter.allowsonlyNumericsAndSpecialCharacters(true);
  return formatter;
}

TEST(CustomTextFieldFormatter, FiltersCharactersNotStructure) {
  const std::vector<std::pair<std::string, bool>> cases = {{"", true},
                                                           {"12-15,20", true},
                                                           {"1234567890-,", true},
                                                           {"--,,", true},
                                                           {"12 15", false},
                                                           {"1a", false},
                                                           {"a", false},
                                                           {"1.2", false},
                                                           {"5\n", false},
                                                           {"\u0665", false},
                                                           {"5\u2013", false},
                                                           {"😀", false},
                                                           {"\xff", false},
                                                           {std::string(1, '\0'), false}};
  const CustomTextFieldFormatter formatter = filtering();
  for (const auto& [text, valid] : cases)
    EXPECT_EQ(formatter.textIsValid(text), valid) << '"' << text << '"';
}

TEST(CustomTextFieldFormatter, AcceptsEverythingUntilSwitchedOn) {
  const CustomTextFieldFormatter formatter;
  for (const char* text : {"", "12 15", "abc", "\u00fc"})
    EXPECT_TRUE(formatter.textIsValid(text)) << text;
}

TEST(CustomTextFieldFormatter, AcceptsEverythingWhenSwitchedOffAgain) {
  CustomTextFieldFormatter formatter = filtering();
  formatter.allowsonlyNumericsAndSpecialCharacters(false);
  for (const char* text : {"", "12 15", "abc", "\u00fc"})
    EXPECT_TRUE(formatter.textIsValid(text)) << text;
}

TEST(CustomTextFieldFormatter, ShowsStringsAndNothingElse) {
  const CustomTextFieldFormatter formatter = filtering();
  EXPECT_EQ(formatter.stringForObjectValue(std::string("not filtered")), "not filtered");
  EXPECT_EQ(formatter.stringForObjectValue(12), std::nullopt);
  EXPECT_EQ(formatter.stringForObjectValue(std::any()), std::nullopt);
}

TEST(CustomTextFieldFormatter, StoresAValidValue) {
  const CustomTextFieldFormatter formatter = filtering();
  std::any object;
  EXPECT_TRUE(formatter.getObjectValue(&object, "5,8"));
  EXPECT_EQ(std::any_cast<std::string>(object), "5,8");
  EXPECT_TRUE(formatter.getObjectValue(nullptr, "5,8"));
}

TEST(CustomTextFieldFormatter, KeepsTheOldValueWhenRefusing) {
  const CustomTextFieldFormatter formatter = filtering();
  std::any object = std::string("5");
  EXPECT_FALSE(formatter.getObjectValue(&object, "5 8"));
  EXPECT_EQ(std::any_cast<std::string>(object), "5");
  EXPECT_FALSE(formatter.getObjectValue(nullptr, "5 8"));
}

TEST(CustomTextFieldFormatter, RefusesAKeystrokeWithoutProposingAnother) {
  const CustomTextFieldFormatter formatter = filtering();
  std::string edited = "before";
  EXPECT_FALSE(formatter.isPartialStringValid("1a", edited));
  EXPECT_EQ(edited, "before");
  EXPECT_TRUE(formatter.isPartialStringValid("1-", edited));
  EXPECT_EQ(edited, "1-");
}

}  // namespace
}  // namespace publishing
