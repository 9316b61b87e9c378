// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/PPDCheck.h"

#include <gmock/gmock.h>

#include "tests/Publishing/ppd/PPDBuilder.h"
#include "tests/corpus/TrayOracle.h"

namespace publishing::corpus {
namespace {

using test::optionLines;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Pair;

const std::string kTrays = optionLines("InputSlot", {"L", "M", "N"}, "L");

std::string constraint(const std::string& sides) {
  return "*UIConstraints: " + sides + "\n";
}

// Twenty states of the marks: each choice of these small PPDs is marked in one at least.
Tally checked(const std::string& lines) {
  const auto ppd = test::openUnmarkedPPD(test::ppdText(lines));
  Tally tally;
  checkPPD(ppd.get(), "sample", 20, tally);
  return tally;
}

TEST(PPDCheck, CountsWhatThePPDHolds) {
  const Tally tally =
      checked(kTrays + optionLines("Duplex", {"None", "Tumble"}, "None") +
              optionLines("Stapler", {"On", "Off"}, "Off") + constraint("*InputSlot M *Duplex") +
              constraint("*Duplex *InputSlot M") + constraint("*InputSlot N *Duplex Tumble") +
              constraint("*Stapler On *Duplex Tumble"));
  EXPECT_EQ(tally.options, 3U);
  EXPECT_EQ(tally.choices, 7U);
  EXPECT_EQ(tally.marks, 21U * 3U);
  EXPECT_EQ(tally.constraints, 4U);
  EXPECT_EQ(tally.trayConstraints, 3U);
  EXPECT_EQ(tally.openTrayConstraints, 2U);
  EXPECT_EQ(tally.trayFiles, 1U);
  EXPECT_EQ(tally.oneWayFiles, 1U);
  EXPECT_EQ(tally.queries, 21U * 3U);
  EXPECT_TRUE(tally.passed());
}

TEST(PPDCheck, FindsEqualAnswersWhereTheRulesAgree) {
  const Tally tally =
      checked(kTrays + optionLines("Duplex", {"None", "Tumble", "Auto"}, "None") +
              constraint("*InputSlot M *Duplex") + constraint("*Duplex Tumble *InputSlot N"));
  EXPECT_GT(tally.forbiddenByPanel, 0U);
  EXPECT_LT(tally.forbiddenByPanel, tally.queries);
  EXPECT_EQ(tally.forbiddenByPanel, tally.forbiddenByCups);
  EXPECT_EQ(tally.unequalAnswers, 0U);
  EXPECT_THAT(tally.differences, IsEmpty());
}

TEST(PPDCheck, NamesEachDifferenceBetweenTheRules) {
  const std::string sides = optionLines("Duplex", {"None", "Tumble", "Off"}, "None");
  const std::string sizes = optionLines("PageSize", {"A4", "A5"}, "A4") +
                            optionLines("PageRegion", {"A4", "A5"}) +
                            "*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 595\"\n";
  const std::string fold =
      "*OpenUI *Fold: PickOne\n*DefaultFold: Half\n*Fold Half: \"\"\n"
      "*CloseUI: *Fold\n*CustomFold True: \"pop\"\n"
      "*ParamCustomFold Angle: 1 int 0 90\n";
  struct Case {
    std::string lines;
    Difference difference;
  };
  for (const auto& [lines, difference] : {
           Case{sides + constraint("*InputSlot M *Duplex"), Difference::Off},
           Case{sizes + constraint("*InputSlot M *PageRegion A4"), Difference::PageSize},
           Case{fold + constraint("*InputSlot M *CustomFold True"), Difference::Custom},
           Case{sides + constraint("*InputSlot M *duplex Tumble"), Difference::Spelling},
           Case{constraint("*InputSlot M *InputSlot N"), Difference::OwnTray},
       }) {
    const Tally tally = checked(kTrays + lines);
    EXPECT_THAT(tally.differences, ElementsAre(Key(difference))) << nameOf(difference);
    EXPECT_GT(tally.unequalAnswers, 0U) << nameOf(difference);
    EXPECT_TRUE(tally.passed()) << nameOf(difference);
  }
}

TEST(PPDCheck, ListsAFileThatLibcupsRefuses) {
  Tally tally;
  checkFile(TEST_DATA "/report.ps", "report.ps", 1, tally);
  EXPECT_EQ(tally.files, 1U);
  EXPECT_THAT(tally.unopened, ElementsAre(::testing::StartsWith("report.ps: ")));
}

TEST(Tally, FailsForAnUnexplainedDifferenceOrAWrongCatalogue) {
  Tally tally;
  EXPECT_TRUE(tally.passed());
  Tally unexplained;
  unexplained.differences[Difference::Unexplained].choices = 1;
  EXPECT_FALSE((tally += unexplained).passed());
  Tally wrong;
  wrong.wrong = {"sample: choices of option Duplex"};
  EXPECT_FALSE(wrong.passed());
}

TEST(TrayOracle, ForgetsConflictsThatInvolveNoTray) {
  const auto ppd = test::openUnmarkedPPD(test::ppdText(
      kTrays + optionLines("Duplex", {"None", "Tumble"}, "Tumble") +
      optionLines("Stapler", {"On", "Off"}, "On") + constraint("*Stapler On *Duplex Tumble") +
      constraint("*InputSlot M *Duplex Tumble") +
      "*cupsUIConstraints three: \"*Stapler On *Duplex Tumble *InputSlot L\"\n"
      "*cupsUIConstraints two: \"*Stapler On *Duplex Tumble\"\n"));
  const TrayOracle oracle(ppd.get());
  ppdMarkDefaults(ppd.get());
  EXPECT_EQ(ppd->num_consts, 2);
  EXPECT_STREQ(ppdFindAttr(ppd.get(), "cupsUIConstraints", "two")->value,
               "*Stapler On *Duplex Tumble");
  EXPECT_THAT(oracle.forbidding("M"), ElementsAre(Pair("Duplex", "Tumble")));
  EXPECT_THAT(oracle.forbidding("L"), ElementsAre(Pair("Duplex", "Tumble"), Pair("Stapler", "On")));
  EXPECT_THAT(oracle.forbidding("N"), IsEmpty());
}

TEST(TrayOracle, RefusesAPPDWhoseConstraintsLibcupsKnowsAlready) {
  const auto ppd = test::openPPDText(kTrays);
  EXPECT_THROW(TrayOracle oracle(ppd.get()), std::logic_error);
}

}  // namespace
}  // namespace publishing::corpus
