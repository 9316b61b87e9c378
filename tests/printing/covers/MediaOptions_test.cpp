// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/MediaOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/Publishing/ppd/PPDBuilder.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using test::optionLines;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Keywords = std::vector<std::string>;

PPDMedia mediaIn(const std::string& ppd) {
  return mediaOf(statementsOf(ppd));
}

Keywords keywordsOf(const std::vector<CoverChoice>& choices) {
  Keywords keywords;
  for (const CoverChoice& choice : choices)
    keywords.push_back(choice.keyword);
  return keywords;
}

Keywords keywordsFor(const Keywords& types, const Keywords& trays, bool withTypes = true) {
  const std::string ppd = optionLines("MediaType", types) + optionLines("InputSlot", trays);
  const PPDMedia media = mediaIn(ppd);
  return keywordsOf(coverChoices(media, withTypes));
}

TEST(MediaOptions, ReadsChoicesWithTextAndCode) {
  const std::string ppd =
      "*OpenUI *InputSlot/Paper Source: PickOne\n*InputSlot Tray1/Tray 1: \"one\"\n"
      "*InputSlot Tray2: \"two\"\n*?InputSlot: \"query\"\n*CloseUI: *InputSlot\n"
      "*InputSlot Tray3/Not in the option: \"three\"\n";
  const MediaOption trays = mediaIn(ppd).trays;
  ASSERT_EQ(trays.choices.size(), 2U);
  EXPECT_EQ(trays.choices[0].keyword, "Tray1");
  EXPECT_EQ(trays.choices[0].text, "Tray 1");
  EXPECT_EQ(trays.choices[0].code, "one");
  EXPECT_EQ(trays.choices[1].text, "");
  EXPECT_EQ(ppd.substr(0, trays.end).rfind("*CloseUI: *InputSlot\n"), trays.end - 21);
  EXPECT_FALSE(trays.beforeJob);
}

TEST(MediaOptions, TellsOptionsOfTheJobControlLanguage) {
  const std::string ppd =
      "*JCLOpenUI *InputSlot: PickOne\n*InputSlot A: \"@PJL SET TRAY=1<0A>\"\n"
      "*InputSlot B: \"@PJL SET TRAY=2<0A>\"\n*JCLCloseUI: *InputSlot\n";
  EXPECT_TRUE(mediaIn(ppd).trays.beforeJob);
}

TEST(MediaOptions, AnOptionThatIsNotClosedEndsWhereTheNextOneBegins) {
  const std::string ppd =
      "*OpenUI *InputSlot: PickOne\n*InputSlot A: \"\"\n*OpenUI *Duplex: PickOne\n"
      "*InputSlot B: \"\"\n*CloseUI: *Duplex\n";
  EXPECT_EQ(mediaIn(ppd).trays.choices.size(), 1U);
}

TEST(MediaOptions, RefusesAnOptionThatIsThereTwice) {
  const std::string ppd = optionLines("InputSlot", {"A", "B"}) + optionLines("InputSlot", {"C"});
  const PrintError error = errorOf([&] { mediaIn(ppd); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  EXPECT_THAT(error.what(), HasSubstr("InputSlot"));
}

TEST(MediaOptions, AChoiceNeedsTwoCodesThatDiffer) {
  const auto switches = [](const std::string& first, const std::string& second) {
    const std::string ppd = "*OpenUI *InputSlot: PickOne\n*InputSlot A: \"" + first +
                            "\"\n*InputSlot B: \"" + second + "\"\n*CloseUI: *InputSlot\n";
    return mediaIn(ppd).trays.switches();
  };
  EXPECT_TRUE(switches("one", "two"));
  EXPECT_TRUE(switches("", "two"));
  EXPECT_FALSE(switches("same", "same"));
  EXPECT_FALSE(MediaOption().switches());
}

TEST(MediaOptions, CoversHaveTypesThenTraysInThePPDsOrder) {
  EXPECT_THAT(keywordsFor({"Plain", "Coated"}, {"Tray2", "Tray1"}),
              ElementsAre("Plain", "Coated", "Tray2", "Tray1"));
  EXPECT_THAT(keywordsFor({"Plain", "Coated"}, {"Tray2", "Tray1"}, false),
              ElementsAre("Tray2", "Tray1"));
  EXPECT_THAT(keywordsFor({"Plain"}, {}), ElementsAre("Plain"));
  EXPECT_THAT(keywordsFor({}, {}), IsEmpty());
}

TEST(MediaOptions, KeywordsThatClashGetAPrefix) {
  EXPECT_THAT(keywordsFor({"Auto", "Plain"}, {"Auto", "Tray1"}),
              ElementsAre("Type.Auto", "Plain", "Slot.Auto", "Tray1"));
  EXPECT_THAT(keywordsFor({"AUTO"}, {"auto"}), ElementsAre("Type.AUTO", "Slot.auto"));
  EXPECT_THAT(keywordsFor({"Auto"}, {"Auto", "Tray1"}, false), ElementsAre("Auto", "Tray1"));
}

TEST(MediaOptions, KeywordsWithAMeaningOfTheirOwnGetAPrefix) {
  EXPECT_THAT(
      keywordsFor({"None", "true", "False"}, {"Unknown", "PRNDEF", "none2"}),
      ElementsAre("Type.None", "Type.true", "Type.False", "Slot.Unknown", "Slot.PRNDEF", "none2"));
}

TEST(MediaOptions, TheTextOfAPrefixedChoiceStaysThatOfItsMedium) {
  const std::string ppd =
      "*OpenUI *MediaType: PickOne\n*MediaType None: \"\"\n*MediaType True/Yes please: \"\"\n"
      "*MediaType Plain: \"\"\n*CloseUI: *MediaType\n";
  const PPDMedia media = mediaIn(ppd);
  const auto choices = coverChoices(media, true);
  EXPECT_EQ(choices[0].text, "None");
  EXPECT_EQ(choices[1].text, "Yes please");
  EXPECT_EQ(choices[2].text, "");
}

TEST(MediaOptions, RefusesAKeywordThatIsTooLongForItsPrefix) {
  const std::string longest(40, 'T');
  const std::string longestClashing(35, 'T');
  EXPECT_THAT(keywordsFor({}, {longest}), ElementsAre(longest));
  EXPECT_THAT(keywordsFor({longestClashing}, {longestClashing}),
              ElementsAre("Type." + longestClashing, "Slot." + longestClashing));
  const PrintError error = errorOf([&] { keywordsFor({longest}, {longest}); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  EXPECT_THAT(error.what(), HasSubstr(longest));
}

}  // namespace
}  // namespace publishing
