// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/PPDFields.h"

#include <vector>

#include <gtest/gtest.h>

#include "tests/Publishing/ppd/PPDBuilder.h"

namespace publishing {
namespace {

TEST(PPDField, EndsAtItsTerminatorOrWithItsArray) {
  const char terminated[8] = "Tray1";
  const char full[5] = {'T', 'r', 'a', 'y', '2'};
  const char empty[4] = "";
  EXPECT_EQ(boundedView(terminated), "Tray1");
  EXPECT_EQ(boundedView(full), "Tray2");
  EXPECT_EQ(boundedView(empty), "");
}

TEST(PPDField, MustBeValidInItsEncoding) {
  struct Case {
    std::string bytes;
    bool ascii, utf8;
  };
  const std::vector<Case> cases = {{"", true, true},
                                   {"Tray1", true, true},
                                   {"\x7f", true, true},
                                   {"épais", false, true},
                                   {"紙", false, true},
                                   {"😀", false, true},
                                   {"\xe9", false, false},
                                   {"a\xc3", false, false},
                                   {"\xc0\x80", false, false},
                                   {"\x80", false, false},
                                   {"\xed\xa0\x80", false, false},
                                   {"\xff\xfe", false, false}};
  for (const auto& [bytes, ascii, utf8] : cases) {
    EXPECT_EQ(isValidIn(bytes, PPDEncoding::ASCII), ascii) << bytes;
    EXPECT_EQ(isValidIn(bytes, PPDEncoding::UTF8), utf8) << bytes;
  }
}

TEST(PPDField, IsAStringOnlyWhenValid) {
  char field[8];
  test::fillField(field, "épais");
  EXPECT_EQ(stringFromPPD(field, PPDEncoding::UTF8), "épais");
  EXPECT_EQ(stringFromPPD(field, PPDEncoding::ASCII), std::nullopt);
  test::fillField(field, "1234567\xc3");  // cut within a character
  EXPECT_EQ(stringFromPPD(field, PPDEncoding::UTF8), std::nullopt);
}

TEST(PPDField, IsJudgedByItsTextAlone) {
  char field[PPD_MAX_NAME];
  for (std::size_t index = 0; index < sizeof(field); ++index) {
    test::fillField(field, "Tray1");
    field[index] = '\xe9';
    const auto expected = index > 5 ? std::optional<std::string>("Tray1") : std::nullopt;
    EXPECT_EQ(stringFromPPD(field, PPDEncoding::UTF8), expected) << index;
  }
}

TEST(PPDEntries, AreNoneWithoutAnArrayOrACount) {
  ppd_choice_t choice{};
  ppd_option_t option{};
  ppd_group_t group{};
  ppd_const_t constraint{};
  ppd_file_t ppd{};
  for (const bool array : {false, true}) {
    for (const int count : {-1, 0, 1}) {
      option.choices = array ? &choice : nullptr;
      group.options = array ? &option : nullptr;
      ppd.groups = array ? &group : nullptr;
      ppd.consts = array ? &constraint : nullptr;
      group.subgroups = array ? &group : nullptr;
      option.num_choices = group.num_options = group.num_subgroups = ppd.num_groups =
          ppd.num_consts = count;
      const std::size_t expected = array && count == 1 ? 1 : 0;
      EXPECT_EQ(choicesOf(&option).size(), expected);
      EXPECT_EQ(optionsOf(&group).size(), expected);
      EXPECT_EQ(subgroupsOf(&group).size(), expected);
      EXPECT_EQ(groupsOf(&ppd).size(), expected);
      EXPECT_EQ(constraintsOf(&ppd).size(), expected);
    }
  }
  EXPECT_TRUE(choicesOf(nullptr).empty());
  EXPECT_TRUE(optionsOf(nullptr).empty());
  EXPECT_TRUE(subgroupsOf(nullptr).empty());
  EXPECT_TRUE(groupsOf(nullptr).empty());
  EXPECT_TRUE(constraintsOf(nullptr).empty());
}

TEST(PPDTexts, AreUTF8WhenTheEncodingBeginsSo) {
  const std::vector<std::pair<const char*, PPDEncoding>> cases = {
      {"UTF-8", PPDEncoding::UTF8},      {"UTF-8-MAC", PPDEncoding::UTF8},
      {"UTF-", PPDEncoding::ASCII},      {"UTF8", PPDEncoding::ASCII},
      {"utf-8", PPDEncoding::ASCII},     {" UTF-8", PPDEncoding::ASCII},
      {"ISOLatin1", PPDEncoding::ASCII}, {"", PPDEncoding::ASCII},
      {nullptr, PPDEncoding::ASCII}};
  for (const auto& [name, encoding] : cases) {
    std::string copy = name != nullptr ? name : "";
    ppd_file_t ppd{};
    ppd.lang_encoding = name != nullptr ? copy.data() : nullptr;
    EXPECT_EQ(encodingOfPPD(&ppd), encoding) << copy;
  }
  EXPECT_EQ(encodingOfPPD(nullptr), PPDEncoding::ASCII);
}

TEST(PPDChoices, AreNoneForWhatIsNotThere) {
  ppd_choice_t choices[2] = {};
  ppd_option_t option{};
  EXPECT_TRUE(choicesOf(nullptr).empty());
  EXPECT_TRUE(choicesOf(&option).empty());
  option.num_choices = 2;
  EXPECT_TRUE(choicesOf(&option).empty());
  option.choices = choices;
  EXPECT_EQ(choicesOf(&option).size(), 2U);
  option.num_choices = -1;
  EXPECT_TRUE(choicesOf(&option).empty());
}

}  // namespace
}  // namespace publishing
