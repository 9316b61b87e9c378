// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "Publishing/ppd/PPDInfo.h"
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

const std::string kTrays = optionLines("InputSlot", {"L", "M", "N"}, "L");
const std::string kCovers = optionLines("CoverMediaType", {"None", "P", "T"}, "None");
const std::string kSides = optionLines("Duplex", {"None", "Tumble", "Off"}, "None");

std::string constraint(const std::string& sides) {
  return "*UIConstraints: " + sides + "\n";
}

// A PPD with its model; constraints loaded for the options given, for all of them when empty.
class Printer {
 public:
  explicit Printer(const std::string& lines, const PPDInfo::Choices& options = {"InputSlot"})
      : ppd(openPPDText(lines)) {
    info.loadPPDFile(ppd.get());
    info.loadConstraintsOnlyFor(options, ppd.get());
  }

  Printer& mark(const char* option, const char* choice) {
    ppdMarkOption(ppd.get(), option, choice);
    info.reloadMarkedChoices(ppd.get());
    return *this;
  }

  [[nodiscard]] bool allows(const char* option, const char* choice) const {
    return info.willAllowChangeOfOption(option, choice);
  }

  test::OpenedPPD ppd;
  PPDInfo info;
};

TEST(Constraints, OfAPPDWithoutAnyAllowEverything) {
  const Printer printer(kTrays + kCovers);
  for (const char* choice : {"L", "M", "N", "nothing known"})
    EXPECT_TRUE(printer.allows("InputSlot", choice));
  EXPECT_TRUE(printer.allows("CoverMediaType", "P"));
  EXPECT_TRUE(printer.allows("nothing known", "P"));
}

TEST(Constraints, WithAnEmptySideCoverAllButNone) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType"));
  struct Case {
    const char* cover;
    bool allowsM;
  };
  for (const auto& [cover, allowsM] : {Case{"None", true}, Case{"P", false}, Case{"T", false}}) {
    printer.mark("CoverMediaType", cover);
    EXPECT_EQ(printer.allows("InputSlot", "M"), allowsM) << cover;
    EXPECT_TRUE(printer.allows("InputSlot", "L")) << cover;
    EXPECT_TRUE(printer.allows("InputSlot", "N")) << cover;
  }
}

TEST(Constraints, AreEnteredInBothDirections) {
  for (const char* sides : {"*InputSlot M *CoverMediaType", "*CoverMediaType *InputSlot M"}) {
    Printer printer(kTrays + kCovers + constraint(sides));
    printer.mark("InputSlot", "M");
    EXPECT_FALSE(printer.allows("CoverMediaType", "P")) << sides;
    EXPECT_FALSE(printer.allows("CoverMediaType", "T")) << sides;
    EXPECT_TRUE(printer.allows("CoverMediaType", "None")) << sides;
    printer.mark("InputSlot", "L").mark("CoverMediaType", "T");
    EXPECT_TRUE(printer.allows("CoverMediaType", "P")) << sides;
    EXPECT_FALSE(printer.allows("InputSlot", "M")) << sides;
  }
}

TEST(Constraints, ListedFromBothSidesCountAsOne) {
  Printer printer(kTrays + kCovers + kSides + constraint("*InputSlot M *CoverMediaType P") +
                  constraint("*CoverMediaType P *InputSlot M") +
                  constraint("*Duplex Off *InputSlot M"));
  printer.mark("CoverMediaType", "P").mark("Duplex", "Off");
  EXPECT_THAT(printer.info.choicesForbidding("InputSlot", "M"), ::testing::SizeIs(2));
  printer.mark("CoverMediaType", "T").mark("InputSlot", "M");
  EXPECT_FALSE(printer.allows("CoverMediaType", "P"));
  EXPECT_FALSE(printer.allows("Duplex", "Off"));
}

TEST(Constraints, ForAnyChoiceAreNotTakenForOnesForTheEmptyChoice) {
  HandmadePPD ppd(oneGroup({{"InputSlot", {"L", "M"}}, {"Stapler", {"", "On"}, "On"}}),
                  {{"InputSlot", "M", "Stapler", ""}, {"Stapler", "", "InputSlot", "L"}});
  PPDInfo info;
  info.loadPPDFile(ppd.get());
  info.loadAllConstraintsFromPPD(ppd.get());
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "M"));
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "L"));
}

TEST(Constraints, OutsideTheCountAreNotRead) {
  HandmadePPD ppd(oneGroup({{"Duplex", {"On"}, "On"}}), {{"InputSlot", "L", "Duplex", "On"},
                                                         {"InputSlot", "M", "Duplex", "On"},
                                                         {"InputSlot", "N", "Duplex", "On"}});
  ++ppd.get()->consts;
  ppd.get()->num_consts = 1;
  PPDInfo info;
  info.loadPPDFile(ppd.get());
  for (const PPDInfo::Choices& filter : {PPDInfo::Choices(), {"InputSlot"}}) {
    info.loadConstraintsFor(filter, ppd.get());
    EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "L"));
    EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "M"));
    EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "N"));
  }
}

TEST(Constraints, WithBothSidesEmptySetAllAgainstAll) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot *CoverMediaType"));
  printer.mark("CoverMediaType", "None");
  for (const char* tray : {"L", "M", "N"})
    EXPECT_TRUE(printer.allows("InputSlot", tray)) << tray;
  for (const char* cover : {"P", "T"}) {
    printer.mark("CoverMediaType", cover);
    for (const char* tray : {"L", "M", "N"})
      EXPECT_FALSE(printer.allows("InputSlot", tray)) << tray << ' ' << cover;
  }
}

TEST(Constraints, AgainstAnOptionThatExpandsToNothingForbidNothing) {
  Printer printer(kTrays + kCovers + optionLines("Stapler", {"None", "False"}, "False") +
                      constraint("*InputSlot M *Stapler") + constraint("*InputSlot *Missing") +
                      constraint("*Missing *CoverMediaType"),
                  {});
  for (const char* stapler : {"None", "False"}) {
    printer.mark("Stapler", stapler).mark("CoverMediaType", "P");
    for (const char* tray : {"L", "M", "N"})
      EXPECT_TRUE(printer.allows("InputSlot", tray)) << tray;
    EXPECT_TRUE(printer.allows("Stapler", "None"));
    EXPECT_TRUE(printer.allows("Missing", "anything"));
  }
}

TEST(Constraints, FromOneChoiceAgainstOneOptionMerge) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType P") +
                  constraint("*InputSlot M *CoverMediaType T") +
                  constraint("*InputSlot M *CoverMediaType P"));
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
  EXPECT_FALSE(printer.mark("CoverMediaType", "P").allows("InputSlot", "M"));
  EXPECT_FALSE(printer.mark("CoverMediaType", "T").allows("InputSlot", "M"));
  EXPECT_TRUE(printer.allows("InputSlot", "L"));
}

TEST(Constraints, BetweenTwoOtherOptionsAreFilteredOut) {
  const std::string lines = kTrays + kCovers + kSides +
                            constraint("*CoverMediaType P *Duplex Tumble") +
                            constraint("*InputSlot M *Duplex Tumble");
  Printer filtered(lines);
  filtered.mark("CoverMediaType", "P").mark("Duplex", "Tumble");
  EXPECT_TRUE(filtered.allows("CoverMediaType", "P"));
  EXPECT_TRUE(filtered.allows("Duplex", "Tumble"));
  EXPECT_FALSE(filtered.allows("InputSlot", "M"));

  Printer all(lines, {});
  all.mark("CoverMediaType", "P").mark("Duplex", "Tumble");
  EXPECT_FALSE(all.allows("CoverMediaType", "P"));
  EXPECT_FALSE(all.allows("Duplex", "Tumble"));
  EXPECT_FALSE(all.allows("InputSlot", "M"));
}

TEST(Constraints, BetweenOptionsThatOnlyBeginLikeOneOfTheFilterAreFilteredOut) {
  for (const char* option : {"Input", "InputSlots", "I"}) {
    for (const char* other : {"", "Duplex", "Input"}) {
      HandmadePPD ppd(oneGroup({{other, {"On"}, "On"}}), {{option, "M", other, "On"}});
      PPDInfo info;
      info.loadPPDFile(ppd.get());
      info.loadConstraintsOnlyFor({"InputSlot"}, ppd.get());
      EXPECT_TRUE(info.willAllowChangeOfOption(option, "M")) << option << ' ' << other;
      info.loadConstraintsOnlyFor({"InputSlot", other}, ppd.get());
      EXPECT_FALSE(info.willAllowChangeOfOption(option, "M")) << option << ' ' << other;
    }
  }
}

TEST(Constraints, AreLoadedForEachOptionOfTheFilter) {
  Printer printer(kTrays + kCovers + kSides + constraint("*CoverMediaType P *Duplex Tumble") +
                      constraint("*InputSlot M *CoverMediaType P"),
                  {"Duplex", "Missing", "Duplex"});
  printer.mark("CoverMediaType", "P").mark("Duplex", "Tumble");
  EXPECT_FALSE(printer.allows("Duplex", "Tumble"));
  EXPECT_FALSE(printer.allows("CoverMediaType", "P"));
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
}

TEST(Constraints, AreAllLoadedForAnEmptyFilter) {
  Printer printer(kTrays + kCovers + kSides + constraint("*CoverMediaType P *Duplex Tumble"));
  printer.mark("CoverMediaType", "P");
  EXPECT_TRUE(printer.allows("Duplex", "Tumble"));
  printer.info.loadConstraintsOnlyFor({}, printer.ppd.get());
  EXPECT_FALSE(printer.allows("Duplex", "Tumble"));
  printer.info.loadConstraintsOnlyFor({"InputSlot"}, printer.ppd.get());
  EXPECT_TRUE(printer.allows("Duplex", "Tumble"));
  printer.info.loadAllConstraintsFromPPD(printer.ppd.get());
  EXPECT_FALSE(printer.allows("Duplex", "Tumble"));
  printer.info.loadConstraintsFor({"InputSlot"}, printer.ppd.get());
  EXPECT_TRUE(printer.allows("Duplex", "Tumble"));
}

TEST(Constraints, NeedAMarkedChoiceOnTheOtherSide) {
  const Printer printer(kTrays + optionLines("Duplex", {"Tumble", "Off"}) +
                        constraint("*InputSlot M *Duplex"));
  ASSERT_EQ(printer.info.currentMarkedChoiceForOption("Duplex"), std::nullopt);
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
}

TEST(Constraints, OfInputSlotAgainstItselfMakeItsOwnMarkedChoiceCount) {
  Printer printer(kTrays + constraint("*InputSlot M *InputSlot N"));
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
  EXPECT_TRUE(printer.allows("InputSlot", "N"));
  printer.mark("InputSlot", "N");
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  EXPECT_TRUE(printer.allows("InputSlot", "N"));
  printer.mark("InputSlot", "M");
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
  EXPECT_FALSE(printer.allows("InputSlot", "N"));
}

TEST(Constraints, MayNameNoneThemselves) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType None"));
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  EXPECT_TRUE(printer.mark("CoverMediaType", "P").allows("InputSlot", "M"));
}

TEST(Constraints, MayNameChoicesThatTheCatalogueLacks) {
  HandmadePPD ppd(oneGroup({{"InputSlot", {"L"}}, {"Duplex", {"Tumble"}, "Tumble"}}),
                  {{"InputSlot", "Unknown", "Duplex", "Tumble"}});
  PPDInfo info;
  info.loadPPDFile(ppd.get());
  info.loadAllConstraintsFromPPD(ppd.get());
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "Unknown"));
  EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "L"));
}

TEST(Constraints, AreAnsweredAgainstTheMarksOfTheLastReload) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType P"));
  ppdMarkOption(printer.ppd.get(), "CoverMediaType", "P");
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
  printer.info.reloadMarkedChoices(printer.ppd.get());
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
}

TEST(Constraints, StayWhenAnotherPPDIsLoadedWithoutThem) {
  Printer printer(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType"));
  const auto other = openPPDText(optionLines("CoverMediaType", {"None", "Q", "T"}, "T"));
  printer.info.loadPPDFile(other.get());
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  ppdMarkOption(other.get(), "CoverMediaType", "Q");
  printer.info.reloadMarkedChoices(other.get());
  EXPECT_TRUE(printer.allows("InputSlot", "M"));  // expanded from the earlier catalogue
  printer.info.loadConstraintsFor({}, nullptr);
  printer.info.loadAllConstraintsFromPPD(nullptr);
  ppdMarkOption(other.get(), "CoverMediaType", "T");
  printer.info.reloadMarkedChoices(other.get());
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  printer.info.loadAllConstraintsFromPPD(other.get());
  EXPECT_TRUE(printer.allows("InputSlot", "M"));
}

TEST(Constraints, LoadedBeforeTheCatalogueExpandToNothing) {
  const auto ppd = openPPDText(kTrays + kCovers + constraint("*InputSlot M *CoverMediaType") +
                               constraint("*InputSlot N *CoverMediaType P"));
  ppdMarkOption(ppd.get(), "CoverMediaType", "P");
  PPDInfo info;
  info.loadAllConstraintsFromPPD(ppd.get());
  EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "N"));
  info.loadPPDFile(ppd.get());
  EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "M"));
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "N"));
}

TEST(Constraints, ByTheHundredsAreAllEntered) {
  std::string trays;
  std::string lines;
  std::vector<std::string> choices;
  for (int index = 0; index < 325; ++index) {
    choices.push_back("Tray" + std::to_string(index));
    lines += constraint("*InputSlot " + choices.back() + " *CoverMediaType P");
  }
  Printer printer(optionLines("InputSlot", choices) + kCovers + lines);
  printer.mark("CoverMediaType", "P");
  for (const std::string& choice : choices)
    EXPECT_FALSE(printer.allows("InputSlot", choice.c_str())) << choice;
  EXPECT_TRUE(printer.allows("InputSlot", "Tray325"));
}

// The largest expansion that a PPD of 56 KB can ask for, again and again.
TEST(Constraints, ThatAreRepeatedAreExpandedOnce) {
  std::vector<std::string> trays;
  std::vector<std::string> covers;
  for (int index = 0; index < 300; ++index) {
    trays.push_back("Tray" + std::to_string(index));
    covers.push_back("Cover" + std::to_string(index));
  }
  const std::string options =
      optionLines("InputSlot", trays, "Tray0") + optionLines("CoverMediaType", covers, "Cover0");
  const std::string line = constraint("*InputSlot *CoverMediaType");
  std::string lines;
  for (int index = 0; index < 500; ++index)
    lines += line + constraint("*CoverMediaType *InputSlot");

  const auto once = openPPDText(options + line);
  const auto often = openPPDText(options + lines);
  PPDInfo info;
  const auto madeBefore = test::madeAllocations();
  const auto bytesBefore = test::liveBytes();
  info.loadPPDFile(once.get());
  info.loadConstraintsOnlyFor({"InputSlot"}, once.get());
  const auto made = test::madeAllocations() - madeBefore;
  const auto bytes = test::liveBytes() - bytesBefore;
  EXPECT_LT(bytes, 25'000'000);
  PPDInfo again;
  again.loadPPDFile(often.get());
  again.loadConstraintsOnlyFor({"InputSlot"}, often.get());
  EXPECT_EQ(test::madeAllocations() - madeBefore, 2 * made);
  EXPECT_FALSE(again.willAllowChangeOfOption("InputSlot", "Tray299"));
}

TEST(Constraints, ThatAreBrokenAreSurvived) {
  const std::string full(PPD_MAX_NAME, 'K');
  HandmadePPD ppd(oneGroup({{"InputSlot", {full, "L"}}, {"Duplex", {"None", full}, full}}),
                  {{"InputSlot", full, "Duplex", full},    // no terminators
                   {"InputSlot", "L", "Duplex", "b\xff"},  // counts as any choice
                   {"Input\xff", "L", "Duplex", full},     // dropped
                   {"InputSlot", "L", "\xc3", ""},         // dropped
                   {"", "", "", ""}});
  PPDInfo info;
  info.loadPPDFile(ppd.get());
  info.loadConstraintsOnlyFor({"InputSlot"}, ppd.get());
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", full));
  EXPECT_FALSE(info.willAllowChangeOfOption("InputSlot", "L"));
  info.loadAllConstraintsFromPPD(ppd.get());
  EXPECT_TRUE(info.willAllowChangeOfOption("Input\xff", "L"));
  EXPECT_TRUE(info.willAllowChangeOfOption("", ""));
}

TEST(AddedConstraint, HasOneDirection) {
  Printer printer(kTrays + kCovers);
  printer.info.addConstraintsForOption1("InputSlot", "M", "CoverMediaType", "");
  printer.mark("CoverMediaType", "P").mark("InputSlot", "M");
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  EXPECT_TRUE(printer.allows("CoverMediaType", "P"));
}

TEST(AddedConstraint, IsNotTheSameAsTheOneInTheOtherDirection) {
  Printer printer(kTrays + kCovers);
  printer.info.addConstraintsForOption1("InputSlot", "M", "CoverMediaType", "P");
  printer.info.addConstraintsForOption1("CoverMediaType", "P", "InputSlot", "M");
  printer.mark("CoverMediaType", "P").mark("InputSlot", "M");
  EXPECT_FALSE(printer.allows("InputSlot", "M"));
  EXPECT_FALSE(printer.allows("CoverMediaType", "P"));
}

TEST(AddedConstraint, CostsTheSameHoweverManyThereAre) {
  Printer printer(kTrays + kCovers);
  printer.mark("CoverMediaType", "P");
  const auto madeForAdding = [&](int first, int count) {
    const auto before = test::madeAllocations();
    for (int number = first; number < first + count; ++number)
      printer.info.addConstraintsForOption1("InputSlot", "M" + std::to_string(number),
                                            "CoverMediaType", "P");
    return test::madeAllocations() - before;
  };
  madeForAdding(0, 1);
  const auto forThousand = madeForAdding(1, 1000);
  EXPECT_EQ(madeForAdding(1001, 15'000), 15 * forThousand);
  EXPECT_FALSE(printer.allows("InputSlot", "M16000"));
}

TEST(AddedConstraint, IsKeptOnce) {
  Printer printer(kTrays + kCovers);
  printer.info.addConstraintsForOption1("InputSlot", "", "CoverMediaType", "");
  const auto before = test::liveAllocations();
  printer.info.addConstraintsForOption1("InputSlot", "", "CoverMediaType", "");
  printer.info.addConstraintsForOption1("InputSlot", "M", "CoverMediaType", "P");
  EXPECT_EQ(test::liveAllocations(), before);
}

TEST(AddedConstraint, MayBeForAnyChoice) {
  Printer printer(kTrays + kCovers);
  printer.info.addConstraintsForOption1("CoverMediaType", "", "InputSlot", "L");
  EXPECT_FALSE(printer.allows("CoverMediaType", "P"));
  EXPECT_FALSE(printer.allows("CoverMediaType", "T"));
  EXPECT_TRUE(printer.allows("CoverMediaType", "None"));
}

TEST(AddedConstraint, IsLostWithoutATable) {
  const auto ppd = openPPDText(kTrays + kCovers);
  PPDInfo info;
  info.loadPPDFile(ppd.get());
  info.addConstraintsForOption1("InputSlot", "M", "CoverMediaType", "None");
  EXPECT_TRUE(info.willAllowChangeOfOption("InputSlot", "M"));
}

TEST(ConstrainableChoices, LeaveOutTheFirstNoneAndTheFirstFalse) {
  struct Case {
    std::vector<std::string> choices, constrainable;
  };
  const std::vector<Case> cases = {
      {{}, {}},
      {{"None", "False"}, {}},
      {{"None", "P", "T"}, {"P", "T"}},
      {{"P", "False", "None", "T"}, {"P", "T"}},
      {{"None", "None", "False", "False"}, {"None", "False"}},
      {{"none", "FALSE", "Off", "True", "Nonesuch"}, {"none", "FALSE", "Off", "True", "Nonesuch"}}};
  for (const auto& [choices, constrainable] : cases) {
    HandmadePPD ppd(oneGroup({{"A", choices}}));
    PPDInfo info;
    info.loadPPDFile(ppd.get());
    EXPECT_EQ(info.getAllConstrainableChoicesFromOption("A"), constrainable);
    EXPECT_THAT(*info.allChoicesForOption("A"), ::testing::ElementsAreArray(choices));
    EXPECT_THAT(info.getAllConstrainableChoicesFromOption("B"), IsEmpty());
  }
  EXPECT_THAT(PPDInfo().getAllConstrainableChoicesFromOption("A"), IsEmpty());
}

TEST(ForbiddingChoices, AreTheMarkedOnesByOption) {
  Printer printer(kTrays + kCovers + kSides + constraint("*InputSlot M *Duplex") +
                  constraint("*CoverMediaType P *InputSlot M") +
                  constraint("*InputSlot M *CoverMediaType P"));
  EXPECT_THAT(printer.info.choicesForbidding("InputSlot", "M"), IsEmpty());
  printer.mark("CoverMediaType", "P").mark("Duplex", "Off");
  std::vector<std::string> names;
  for (const auto& [option, choice] : printer.info.choicesForbidding("InputSlot", "M"))
    names.push_back(option + " " + choice);
  EXPECT_THAT(names, ElementsAre("CoverMediaType P", "Duplex Off"));
  EXPECT_THAT(printer.info.choicesForbidding("InputSlot", "L"), IsEmpty());
}

}  // namespace
}  // namespace publishing
