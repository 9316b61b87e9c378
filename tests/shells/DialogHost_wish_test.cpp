// SPDX-License-Identifier: Apache-2.0
// What the user wants lasts while the job or an unticked box hides it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;

class DialogHostWishTest : public DialogHostTest {
 protected:
  static void twoSided(DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; }
  static void oneSided(DialogJob& job) { job.sides = Sides::OneSided; }

  // Front and back covers on three of their sides, and inserts with this list.
  void wantAll(const std::string& list) {
    choose(office);
    dialog.change(twoSided);
    box("CmCheckBox").click();
    covers().click(1);
    popUp("CmMediaType").choose(4);
    for (const char* side : {"CmFrontInside", "CmBackOutside"})
      box(side).click();
    box("PiCheckBox").click();
    popUp("PiMediaType").choose(2);
    pages().type(list);
    box("PiPrintOnBack").click();
  }

  void expectAll(const std::string& list) const {
    EXPECT_EQ(box("CmCheckBox").state(), 1);
    EXPECT_EQ(covers().selectedColumn(), 1);
    EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 4);
    for (const char* side : {"CmFrontOutside", "CmFrontInside", "CmBackOutside"})
      EXPECT_EQ(box(side).state(), 1) << side;
    EXPECT_EQ(box("CmBackInside").state(), 0);
    EXPECT_EQ(box("PiCheckBox").state(), 1);
    EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 2);
    EXPECT_EQ(pages().stringValue(), list);
    EXPECT_EQ(box("PiPrintOnFront").state(), 0);
    EXPECT_EQ(box("PiPrintOnBack").state(), 1);
    EXPECT_EQ(dialog.choice("CoverMediaType"), "Coated");
    EXPECT_EQ(dialog.choice("PageMediaType"), "Recycled");
  }

  void expectNothingShown() const {
    for (const char* feature : {"CmCheckBox", "PiCheckBox"}) {
      EXPECT_EQ(box(feature).state(), 0) << feature;
      EXPECT_FALSE(box(feature).isEnabled()) << feature;
    }
    EXPECT_EQ(dialog.choice("CoverMediaType"), "PrnDef");
    EXPECT_EQ(dialog.choice("PageMediaType"), "PrnDef");
  }
};

// Faulty ones too: the user was not done with them.
constexpr const char* kLists[] = {"5,12-14", "1", "12-", ""};

TEST_F(DialogHostWishTest, SeveralPagesPerSideAndBackLoseNothing) {
  for (const char* list : kLists) {
    wantAll(list);
    dialog.change([](DialogJob& job) { job.numberUp = 2; });
    expectNothingShown();
    dialog.change([](DialogJob& job) { job.numberUp = 1; });
    expectAll(list);
    EXPECT_THAT(stored(office), IsEmpty());
  }
}

TEST_F(DialogHostWishTest, ReverseOrderAndBackLosesNothing) {
  for (const char* list : kLists) {
    wantAll(list);
    dialog.change([](DialogJob& job) { job.reverse = true; });
    expectNothingShown();
    dialog.change([](DialogJob& job) { job.reverse = false; });
    expectAll(list);
    EXPECT_THAT(stored(office), IsEmpty());
  }
}

TEST_F(DialogHostWishTest, BothAtOnceAndOneSidedAndBackLoseNothing) {
  wantAll("5");
  dialog.change([](DialogJob& job) { job.reverse = true; });
  dialog.change([](DialogJob& job) { job.numberUp = 4; });
  dialog.change(oneSided);
  dialog.change([](DialogJob& job) { job.reverse = false; });
  expectNothingShown();
  dialog.change([](DialogJob& job) { job.numberUp = 1; });
  EXPECT_EQ(box("CmFrontInside").state(), 0);
  dialog.change(twoSided);
  expectAll("5");
}

TEST_F(DialogHostWishTest, OneSidedAndBackLosesNoSide) {
  wantAll("5");
  dialog.change(oneSided);
  for (const char* side : {"CmFrontInside", "CmBackOutside", "PiPrintOnBack"})
    EXPECT_EQ(box(side).state(), 0) << side;
  EXPECT_EQ(box("CmFrontOutside").state(), 1);
  dialog.change(twoSided);
  expectAll("5");
}

TEST_F(DialogHostWishTest, WhatTheUserChangesMeanwhileCounts) {
  wantAll("5");
  dialog.change(oneSided);
  box("CmFrontOutside").click();
  box("CmBackInside").click();
  pages().type("7");
  dialog.change(twoSided);
  EXPECT_EQ(box("CmFrontOutside").state(), 0);
  EXPECT_EQ(box("CmFrontInside").state(), 1);
  EXPECT_EQ(box("CmBackInside").state(), 1);
  EXPECT_EQ(pages().stringValue(), "7");
  // Another kind of cover begins with other sides.
  dialog.change(oneSided);
  covers().click(0);
  dialog.change(twoSided);
  EXPECT_EQ(box("CmFrontInside").state(), 0);
}

TEST_F(DialogHostWishTest, UntickedAndTickedAgainShowsTheSame) {
  for (const char* list : kLists) {
    wantAll(list);
    for (int times = 0; times < 2; ++times) {
      box("CmCheckBox").click();
      EXPECT_EQ(dialog.choice("CoverMediaType"), "PrnDef");
      box("PiCheckBox").click();
      EXPECT_EQ(dialog.choice("PageMediaType"), "PrnDef");
      box("PiCheckBox").click();
      box("CmCheckBox").click();
      expectAll(list);
    }
    EXPECT_THAT(stored(office), IsEmpty());
  }
}

TEST_F(DialogHostWishTest, UntickedBeforeTheLayoutChangesStaysUnticked) {
  wantAll("5");
  box("CmCheckBox").click();
  dialog.change([](DialogJob& job) { job.numberUp = 2; });
  dialog.change([](DialogJob& job) { job.numberUp = 1; });
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  box("CmCheckBox").click();
  expectAll("5");
}

TEST_F(DialogHostWishTest, FaultyListStaysAfterTheAlert) {
  wantAll("12-");
  EXPECT_FALSE(dialog.print());
  expectAll("12-");
  EXPECT_THAT(stored(office), IsEmpty());
}

TEST_F(DialogHostWishTest, JobWithoutCoversForItsLayoutLeavesWhatIsRememberedAlone) {
  wantAll("5,12-14");
  ASSERT_TRUE(dialog.print());
  const auto remembered = stored(office);
  EXPECT_THAT(remembered, Contains(Pair("VtCoverModeState", "On")));
  choose(office);
  dialog.change([](DialogJob& job) { job.numberUp = 2; });
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "Off");
  EXPECT_THAT(dialog.handedOver, Not(Contains(Pair("CoverMediaType", "Coated"))));
  EXPECT_EQ(stored(office), remembered);
  choose(office);
  dialog.change(twoSided);
  expectAll("12-14,5");
}

TEST_F(DialogHostWishTest, FeatureThatTheUserSwitchedOffIsRememberedAsOff) {
  wantAll("5");
  ASSERT_TRUE(dialog.print());
  box("CmCheckBox").click();
  dialog.change([](DialogJob& job) { job.reverse = true; });
  ASSERT_TRUE(dialog.print());
  EXPECT_THAT(stored(office), Contains(Pair("VtCoverModeState", "Off")));
  EXPECT_THAT(stored(office), Contains(Pair("VtPageinsertState", "On")));
}

TEST_F(DialogHostWishTest, PrintIsHeldUntilAPrinterWithRememberedCoversAnswers) {
  wantAll("5");
  ASSERT_TRUE(dialog.print());
  dialog.handedOver.clear();
  dialog.answersAtOnce = false;
  dialog.selectPrinter(office);
  EXPECT_FALSE(dialog.print());
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.message(), HasSubstr("as soon as it answers"));
  EXPECT_TRUE(dialog.isTabInFront());
  EXPECT_THAT(dialog.handedOver, IsEmpty());
  dialog.answer();
  EXPECT_TRUE(dialog.isPrinted);
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "On");
  EXPECT_EQ(dialog.handedOver["CoverMediaType"], "Coated");
}

TEST_F(DialogHostWishTest, PrintForAPrinterThatIsLateIsTheUsersDecision) {
  wantAll("5");
  ASSERT_TRUE(dialog.print());
  const auto remembered = stored(office);
  dialog.answersAtOnce = false;
  dialog.selectPrinter(office);
  dialog.becomeLate();
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.message(), HasSubstr("Press Print again to print without them"));
  EXPECT_TRUE(dialog.print());
  EXPECT_EQ(stored(office), remembered);
}

TEST_F(DialogHostWishTest, HeldPrintIsForgottenWithThePrinter) {
  wantAll("5");
  ASSERT_TRUE(dialog.print());
  dialog.answersAtOnce = false;
  dialog.selectPrinter(office);
  EXPECT_FALSE(dialog.print());
  dialog.selectPrinter(studio);
  dialog.answer();
  EXPECT_FALSE(dialog.isPrinted);
  EXPECT_TRUE(dialog.print());
}

TEST_F(DialogHostWishTest, PrintGoesOnForAPrinterForWhichNothingIsRemembered) {
  dialog.answersAtOnce = false;
  dialog.selectPrinter(office);
  EXPECT_TRUE(dialog.print());
  EXPECT_THAT(dialog.handedOver, Not(Contains(Key("VtCoverModeState"))));
}

}  // namespace
}  // namespace publishing
