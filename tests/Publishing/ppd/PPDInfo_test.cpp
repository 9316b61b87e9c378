// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/PPDInfo.h"

#include <gmock/gmock.h>

#include "tests/Publishing/ppd/AllocationCount.h"
#include "tests/Publishing/ppd/PPDBuilder.h"

namespace publishing {
namespace {

using test::Groups;
using test::HandmadePPD;
using test::oneGroup;
using test::openPPDText;
using test::optionLines;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsNull;
using ::testing::Pair;
using ::testing::Pointee;
using ::testing::SizeIs;

const std::string kTrays = optionLines("InputSlot", {"None", "Tray1", "Tray2"}, "Tray1");
const std::string kSizes = optionLines("PageSize", {"A4", "A3"}, "A3");

PPDInfo loaded(ppd_file_t* ppd) {
  PPDInfo info;
  info.loadPPDFile(ppd);
  return info;
}

TEST(PPDInfo, KnowsNothingBeforeALoad) {
  const PPDInfo info;
  EXPECT_THAT(info.allChoicesForOption("InputSlot"), IsNull());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), std::nullopt);
  EXPECT_FALSE(info.isOEMPPD());
}

TEST(PPDInfo, KeepsAllWhenGivenANullPPD) {
  HandmadePPD ppd(oneGroup({{"InputSlot", {"Tray1", "Tray2"}, "Tray2"}}), {}, "Acme");
  PPDInfo info = loaded(ppd.get());
  info.loadPPDFile(nullptr);
  info.loadAllOptionsAndChoices(nullptr);
  info.reloadMarkedChoices(nullptr);
  EXPECT_THAT(info.allChoicesForOption("InputSlot"), Pointee(ElementsAre("Tray1", "Tray2")));
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray2");
  EXPECT_TRUE(info.isOEMPPD());
}

TEST(PPDInfo, ReplacesAllByTheNextPPD) {
  HandmadePPD first(oneGroup({{"A", {"a"}, "a"}, {"B", {"b"}, "b"}}), {}, "Acme");
  HandmadePPD second(oneGroup({{"B", {"c"}}}), {}, "Zephrel");
  PPDInfo info = loaded(first.get());
  info.loadPPDFile(second.get());
  EXPECT_THAT(info.allChoicesForOption("A"), IsNull());
  EXPECT_EQ(info.currentMarkedChoiceForOption("A"), std::nullopt);
  EXPECT_THAT(info.allChoicesForOption("B"), Pointee(ElementsAre("c")));
  EXPECT_EQ(info.currentMarkedChoiceForOption("B"), std::nullopt);
  EXPECT_FALSE(info.isOEMPPD());
}

TEST(PPDInfo, NeedsNoPPDAfterTheLoad) {
  PPDInfo info;
  {
    const auto ppd = openPPDText(kTrays);
    info.loadPPDFile(ppd.get());
  }
  EXPECT_THAT(info.allChoicesForOption("InputSlot"), Pointee(SizeIs(3)));
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
}

TEST(PPDInfo, LoadedAgainKeepsNothingOfTheLastPPD) {
  const auto large = test::openPPDFile(TEST_DATA "/zephrel-ps-9000.ppd");
  const auto small = openPPDText(kTrays + kSizes + "*UIConstraints: *InputSlot *PageSize A3\n");
  const auto load = [](PPDInfo& info, ppd_file_t* ppd) {
    info.loadPPDFile(ppd);
    info.loadAllConstraintsFromPPD(ppd);
  };
  const auto before = test::liveAllocations();
  PPDInfo fresh;
  load(fresh, small.get());
  const auto alone = test::liveAllocations() - before;
  PPDInfo used;
  load(used, large.get());
  load(used, small.get());
  EXPECT_EQ(test::liveAllocations() - before, 2 * alone);
}

TEST(Catalogue, ItselfIsHandedOutUntilTheNextLoad) {
  const auto ppd = openPPDText(kTrays + kSizes);
  PPDInfo info = loaded(ppd.get());
  const PPDInfo::Choices* const trays = info.allChoicesForOption("InputSlot");
  info.reloadMarkedChoices(ppd.get());
  info.loadAllConstraintsFromPPD(ppd.get());
  EXPECT_EQ(info.allChoicesForOption("InputSlot"), trays);
  EXPECT_THAT(trays, Pointee(ElementsAre("None", "Tray1", "Tray2")));
}

TEST(Catalogue, HoldsEveryChoiceInThePPDsOrder) {
  const auto ppd = openPPDText(kTrays + optionLines("Duplex", {"False", "DuplexTumble", "Off"}));
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption("InputSlot"),
              Pointee(ElementsAre("None", "Tray1", "Tray2")));
  EXPECT_THAT(info.allChoicesForOption("Duplex"),
              Pointee(ElementsAre("False", "DuplexTumble", "Off")));
  EXPECT_THAT(info.allChoicesForOption("Paper"), IsNull());
  EXPECT_THAT(info.allChoicesForOption("inputslot"), IsNull());
}

TEST(Catalogue, MergesNoChoices) {
  HandmadePPD ppd(oneGroup({{"A", {"x", "y", "x", ""}}}));
  EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(ElementsAre("x", "y", "x", "")));
}

TEST(Catalogue, HoldsOptionsWithoutChoices) {
  HandmadePPD ppd(oneGroup({{"A", {}}}));
  EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(IsEmpty()));
}

TEST(Catalogue, MatchesTheSamplePPD) {
  const auto ppd = test::openPPDFile(TEST_DATA "/zephrel-ps-9000.ppd");
  const PPDInfo info = loaded(ppd.get());
  for (ppd_option_t* option = ppdFirstOption(ppd.get()); option != nullptr;
       option = ppdNextOption(ppd.get())) {
    std::vector<std::string> choices;
    for (int index = 0; index < option->num_choices; ++index)
      choices.emplace_back(option->choices[index].choice);
    EXPECT_THAT(info.allChoicesForOption(option->keyword),
                Pointee(::testing::ElementsAreArray(choices)));
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd.get(), option->keyword);
    EXPECT_EQ(info.currentMarkedChoiceForOption(option->keyword),
              marked != nullptr ? std::optional<std::string>(marked->choice) : std::nullopt);
  }
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
}

TEST(Subgroups, AreVisitedAgainAfterEachOptionWithTheSameContent) {
  HandmadePPD ppd(Groups{
      {.options = {{"A", {"a"}}, {"B", {"b"}}}, .subgroups = {{{{"C", {"c1", "c2"}, "c2"}}}}}});
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption("A"), Pointee(ElementsAre("a")));
  EXPECT_THAT(info.allChoicesForOption("B"), Pointee(ElementsAre("b")));
  EXPECT_THAT(info.allChoicesForOption("C"), Pointee(ElementsAre("c1", "c2")));
  EXPECT_EQ(info.currentMarkedChoiceForOption("C"), "c2");
}

TEST(Subgroups, OfAGroupWithoutOptionsStayOut) {
  HandmadePPD ppd(Groups{{.options = {}, .subgroups = {{{{"D", {"d1", "d2"}, "d1"}}}}}});
  ASSERT_NE(ppdFindMarkedChoice(ppd.get(), "D"), nullptr);
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption("D"), IsNull());
  EXPECT_EQ(info.currentMarkedChoiceForOption("D"), std::nullopt);
}

TEST(Subgroups, AreVisitedAtEveryDepth) {
  HandmadePPD ppd(
      Groups{{.options = {{"A", {"a"}}},
              .subgroups = {{.options = {{"B", {"b"}}}, .subgroups = {{{{"C", {"c"}}}}}},
                            {.options = {}, .subgroups = {{{{"D", {"d"}}}}}}}}});
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption("C"), Pointee(ElementsAre("c")));
  EXPECT_THAT(info.allChoicesForOption("D"), IsNull());
}

TEST(SameKeyword, TheLaterGroupWins) {
  HandmadePPD ppd(Groups{{{{"A", {"first"}}}}, {{{"A", {"second", "third"}}}}});
  EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(ElementsAre("second", "third")));
}

TEST(SameKeyword, TheLaterOptionOfAGroupWins) {
  HandmadePPD ppd(oneGroup({{"A", {"first", "second"}}, {"B", {}}, {"A", {"third"}}}));
  EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(ElementsAre("third")));
}

TEST(SameKeyword, TheSubgroupsListStays) {
  for (const auto& options :
       std::vector<std::vector<test::HandmadeOption>>{{{"A", {"parent"}}},
                                                      {{"A", {"parent"}}, {"B", {"b"}}},
                                                      {{"B", {"b"}}, {"A", {"parent"}}}}) {
    HandmadePPD ppd(Groups{{.options = options, .subgroups = {{{{"A", {"subgroup"}}}}}}});
    EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(ElementsAre("subgroup")));
  }
}

TEST(SameKeyword, ALaterGroupWinsOverASubgroup) {
  HandmadePPD ppd(Groups{{.options = {{"B", {"b"}}}, .subgroups = {{{{"A", {"subgroup"}}}}}},
                         {.options = {{"A", {"later group"}}}}});
  EXPECT_THAT(loaded(ppd.get()).allChoicesForOption("A"), Pointee(ElementsAre("later group")));
}

TEST(NullEntries, AreSkipped) {
  ppd_option_t option{};
  option.num_choices = 1;
  PPDInfo::OptionsAndChoices options = {{"A", {"before"}}};
  PPDInfo::addOptionsFromGroup(nullptr, options);
  PPDInfo::addChoicesFromOption(nullptr, options["A"]);
  PPDInfo::addChoicesFromOption(&option, options["A"]);
  EXPECT_THAT(options, ElementsAre(Pair("A", ElementsAre("before"))));

  ppd_file_t ppd{};
  ppd.num_groups = 1;
  ppd.num_consts = 1;
  PPDInfo info = loaded(&ppd);
  info.loadAllConstraintsFromPPD(&ppd);
  EXPECT_THAT(info.allChoicesForOption(""), IsNull());
}

TEST(NullEntries, MayBeSaidToBeSeveral) {
  HandmadePPD filled(Groups{{.options = {{"A", {"a"}}}}});
  ppd_group_t group = filled.get()->groups[0];
  group.subgroups = nullptr;
  group.num_subgroups = 2;
  PPDInfo::OptionsAndChoices options;
  PPDInfo::addOptionsFromGroup(&group, options);
  EXPECT_EQ(options.size(), 1U);

  ppd_file_t ppd{};
  ppd.num_groups = 2;
  ppd.num_consts = 2;
  PPDInfo info = loaded(&ppd);
  info.loadAllConstraintsFromPPD(&ppd);
  EXPECT_THAT(info.allChoicesForOption("A"), IsNull());
}

TEST(NullEntries, DoNotKeepTheSubgroupsOfTheirGroupOut) {
  HandmadePPD ppd(Groups{{.options = {}, .subgroups = {{{{"C", {"c"}}}}}}});
  ppd_group_t group = ppd.get()->groups[0];
  group.options = nullptr;
  group.num_options = 1;
  PPDInfo::OptionsAndChoices options;
  PPDInfo::addOptionsFromGroup(&group, options);
  EXPECT_THAT(options, ElementsAre(Pair("C", ElementsAre("c"))));
}

TEST(BrokenKeywords, WithoutTerminatorEndWithTheirArray) {
  const std::string full(PPD_MAX_NAME, 'K');
  HandmadePPD ppd(oneGroup({{full, {full, "x"}, full}, {"A", {full}, full}}));
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption(full), Pointee(ElementsAre(full, "x")));
  EXPECT_EQ(info.currentMarkedChoiceForOption("A"), full);
}

TEST(BrokenKeywords, ThatAreNotUTF8AreLeftOut) {
  HandmadePPD ppd(
      oneGroup({{"A", {"good", "\xff", "b\xc3", "épais"}, "\xff"}, {"B\xe9", {"x"}}, {"C", {}}}));
  const PPDInfo info = loaded(ppd.get());
  EXPECT_THAT(info.allChoicesForOption("A"), Pointee(ElementsAre("good", "épais")));
  EXPECT_EQ(info.currentMarkedChoiceForOption("A"), std::nullopt);
  EXPECT_THAT(info.allChoicesForOption("B\xe9"), IsNull());
  EXPECT_THAT(info.allChoicesForOption("C"), Pointee(IsEmpty()));
}

TEST(MarkedChoices, HaveNoEntryForAnUnmarkedOption) {
  const auto ppd = openPPDText(kTrays + optionLines("Duplex", {"None", "DuplexTumble"}));
  const PPDInfo info = loaded(ppd.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
  EXPECT_EQ(info.currentMarkedChoiceForOption("Duplex"), std::nullopt);
  EXPECT_EQ(info.currentMarkedChoiceForOption("Paper"), std::nullopt);
}

TEST(MarkedChoices, AreThoseOfTheLastReload) {
  const auto ppd = openPPDText(kTrays + kSizes);
  PPDInfo info = loaded(ppd.get());
  ppdMarkOption(ppd.get(), "InputSlot", "Tray2");
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
  info.reloadMarkedChoices(ppd.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray2");
  EXPECT_EQ(info.currentMarkedChoiceForOption("PageSize"), "A3");
}

TEST(MarkedChoices, AreLookedUpForTheCatalogueOnly) {
  const auto first = openPPDText(kTrays);
  const auto second = openPPDText(kTrays + kSizes);
  PPDInfo info;
  info.reloadMarkedChoices(first.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), std::nullopt);
  info.loadPPDFile(first.get());
  info.reloadMarkedChoices(second.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
  EXPECT_EQ(info.currentMarkedChoiceForOption("PageSize"), std::nullopt);
}

TEST(MarkedChoices, StayWhenTheCatalogueAloneIsLoaded) {
  const auto ppd = openPPDText(kTrays);
  PPDInfo info = loaded(ppd.get());
  const auto other = openPPDText(kSizes);
  info.loadAllOptionsAndChoices(other.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
  EXPECT_THAT(info.allChoicesForOption("InputSlot"), IsNull());
}

void expectMarksOfLibcups(ppd_file_t* ppd, const std::vector<const char*>& options) {
  const PPDInfo info = loaded(ppd);
  for (const char* option : options) {
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd, option);
    EXPECT_EQ(info.currentMarkedChoiceForOption(option),
              marked != nullptr ? std::optional<std::string>(marked->choice) : std::nullopt)
        << option;
  }
}

TEST(MarkedChoices, OfOptionsThatDifferInCaseAreThoseOfTheFirst) {
  const std::vector<const char*> keywords = {"Duplex", "duplex", "DUPLEX", "Duple"};
  std::string lines = optionLines("Duple", {"a"}, "a");
  for (const char* keyword : {"Duplex", "duplex", "DUPLEX"})
    lines += optionLines(keyword, {std::string("On") + keyword, "Off"}, "Off");
  const auto ppd = openPPDText(lines);
  expectMarksOfLibcups(ppd.get(), keywords);
  for (const char* choice : {"OnDuplex", "Onduplex", "OnDUPLEX", "Off"}) {
    ppdMarkOption(ppd.get(), "duplex", choice);
    expectMarksOfLibcups(ppd.get(), keywords);
  }
}

TEST(MarkedChoices, OfOptionsThatDifferInCaseAreThoseOfTheFirstHoweverTheyAreMarked) {
  for (const auto& [upper, lower] : {std::pair("A", "a"), std::pair("Z", "z")}) {
    HandmadePPD both(
        oneGroup({{upper, {"x", "y"}, "y"}, {lower, {"x", "y"}, "x"}, {"B", {"z"}, "z"}}));
    expectMarksOfLibcups(both.get(), {upper, lower, "B"});
    HandmadePPD second(
        oneGroup({{upper, {"x", "y"}}, {lower, {"x", "y"}, "x"}, {"B", {"z"}, "z"}}));
    expectMarksOfLibcups(second.get(), {upper, lower, "B"});
  }
}

TEST(MarkedChoices, OfAnOptionInTwoGroupsAreThoseOfTheFirst) {
  const std::string first = optionLines("Duplex", {"On", "Off"}, "On") + kTrays;
  const std::string second = optionLines("Duplex", {"Off", "Tumble"}, "Tumble");
  const auto ppd =
      openPPDText("*OpenGroup: One/One\n" + first + "*CloseGroup: One\n*OpenGroup: Two/Two\n" +
                  second + "*CloseGroup: Two\n");
  ASSERT_EQ(ppd->num_groups, 2);
  for (const char* choice : {"On", "Off", "Tumble"}) {
    ppdMarkOption(ppd.get(), "Duplex", choice);
    expectMarksOfLibcups(ppd.get(), {"Duplex", "InputSlot"});
  }
}

TEST(MarkedChoices, OfAnOptionWithSeveralAreTheFirst) {
  const auto ppd = openPPDText(
      "*OpenUI *Finish: PickMany\n*Finish Punch: \"\"\n*Finish Fold: \"\"\n"
      "*Finish Staple: \"\"\n*CloseUI: *Finish\n");
  for (const char* choice : {"Staple", "Punch", "Fold"}) {
    ppdMarkOption(ppd.get(), "Finish", choice);
    expectMarksOfLibcups(ppd.get(), {"Finish"});
  }
  ASSERT_EQ(cupsArrayCount(ppd->marked), 3);
}

TEST(MarkedChoices, OfAKeywordThatFillsItsArrayAreNotFound) {
  const std::string full(PPD_MAX_NAME, 'K');
  HandmadePPD ppd(oneGroup({{full, {"x"}, "x"}, {"A", {"y"}, "y"}}));
  ASSERT_EQ(ppdFindMarkedChoice(ppd.get(), full.c_str()), nullptr);
  expectMarksOfLibcups(ppd.get(), {full.c_str(), "A"});
  HandmadePPD alone(oneGroup({{full, {"x"}, "x"}}));
  expectMarksOfLibcups(alone.get(), {full.c_str()});
}

TEST(MarkedChoices, NeedNoListsOfLibcups) {
  for (const bool listed : {false, true}) {
    for (const bool marked : {false, true}) {
      HandmadePPD ppd(oneGroup({{"A", {"x", "y"}, "y"}, {"a", {"x", "y"}, "x"}, {"B", {"z"}}}));
      if (!listed) ppd.get()->options = nullptr;
      if (!marked) ppd.get()->marked = nullptr;
      expectMarksOfLibcups(ppd.get(), {"A", "a", "B"});
    }
  }
}

TEST(MarkedChoices, OutliveTheCatalogueThatTheyWereReadFor) {
  const auto ppd = openPPDText(kTrays + kSizes);
  PPDInfo info = loaded(ppd.get());
  PPDInfo copy = info;
  const auto other = openPPDText(optionLines("PageSize", {"A5"}, "A5"));
  info.loadAllOptionsAndChoices(other.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), "Tray1");
  info.reloadMarkedChoices(other.get());
  EXPECT_EQ(info.currentMarkedChoiceForOption("InputSlot"), std::nullopt);
  EXPECT_EQ(info.currentMarkedChoiceForOption("PageSize"), "A5");
  EXPECT_EQ(copy.currentMarkedChoiceForOption("PageSize"), "A3");
}

TEST(Manufacturer, IsForeignUnlessItContainsTheMakersName) {
  const std::vector<std::pair<const char*, bool>> cases = {
      {"Zephrel", false},       {"Made by Zephrel", false},
      {"Zephrel Corp.", false}, {"xZephrelx", false},
      {"Acme", true},           {"ZEPHREL", true},
      {"zephrel", true},        {"Zephre", true},
      {"Zeph rel", true},       {"", true},
      {"Zéphrel", true},        {nullptr, false},
      {"Acme \xff", false}};
  for (const auto& [name, foreign] : cases) {
    HandmadePPD ppd({}, {}, name);
    EXPECT_EQ(loaded(ppd.get()).isOEMPPD(), foreign) << (name != nullptr ? name : "no name");
  }
}

TEST(Manufacturer, ThatIsMissingForgetsTheEarlierOne) {
  HandmadePPD named({}, {}, "Acme");
  HandmadePPD unnamed({});
  PPDInfo info = loaded(named.get());
  ASSERT_TRUE(info.isOEMPPD());
  info.loadPPDFile(unnamed.get());
  EXPECT_FALSE(info.isOEMPPD());
}

}  // namespace
}  // namespace publishing
