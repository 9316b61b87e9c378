// SPDX-License-Identifier: Apache-2.0
// Whether choices are remembered at all: the check box in the tab, and the rule.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

class DialogRememberingTest : public DialogHostTest {
 protected:
  // Covers on the printer that is chosen, printed once.
  void printCovers() {
    if (box("CmCheckBox").state() == 0) box("CmCheckBox").click();
    ASSERT_TRUE(dialog.print());
  }

  // What another dialog shows for the printer.
  static bool hasCovers(TinyDialog& next, const std::string& printer) {
    next.selectPrinter(printer);
    next.lookAtTab();
    return next.panel().checkBox("CmCheckBox")->state() == 1;
  }
};

TEST_F(DialogRememberingTest, IsOnAtFirst) {
  EXPECT_FALSE(dialog.host().remembering().isOn) << "without a printer";
  choose(office);
  printCovers();
  EXPECT_TRUE(dialog.host().remembering().isOn);
  EXPECT_EQ(dialog.host().remembering().against, "");
  EXPECT_THAT(stored(office), Not(IsEmpty()));
}

TEST_F(DialogRememberingTest, SwitchedOffForgetsThePrinterWithTheJob) {
  choose(office);
  printCovers();
  const auto before = stored(office);
  dialog.host().setRemembering(false);
  EXPECT_EQ(stored(office), before) << "before Print";
  EXPECT_EQ(box("CmCheckBox").state(), 1) << "the covers of this job stay";
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "On");
  EXPECT_THAT(stored(office), ElementsAre(Pair("Remember", "Off")));
}

TEST_F(DialogRememberingTest, StaysOffForThatPrinterAlone) {
  choose(office);
  dialog.host().setRemembering(false);
  printCovers();
  TinyDialog next;
  EXPECT_FALSE(hasCovers(next, office));
  EXPECT_FALSE(next.host().remembering().isOn);
  EXPECT_EQ(next.notices(), "");
  EXPECT_EQ(next.outsideTab(), "");
  next.selectPrinter(studio);
  EXPECT_TRUE(next.host().remembering().isOn);
}

TEST_F(DialogRememberingTest, SwitchedOnAgainRemembersTheJobThatIsPrinted) {
  choose(office);
  dialog.host().setRemembering(false);
  printCovers();
  choose(office);
  dialog.host().setRemembering(true);
  printCovers();
  EXPECT_FALSE(stored(office).contains("Remember"));
  TinyDialog next;
  EXPECT_TRUE(hasCovers(next, office));
}

TEST_F(DialogRememberingTest, OffAndOnAgainBeforePrintLosesNothing) {
  choose(office);
  printCovers();
  const auto before = stored(office);
  choose(office);
  dialog.host().setRemembering(false);
  dialog.host().setRemembering(true);
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(stored(office), before);
}

TEST_F(DialogRememberingTest, JobThatIsRefusedForgetsNothing) {
  choose(office);
  printCovers();
  const auto before = stored(office);
  dialog.host().setRemembering(false);
  box("PiCheckBox").click();
  pages().type("1");
  EXPECT_FALSE(dialog.print());
  EXPECT_EQ(stored(office), before);
}

TEST_F(DialogRememberingTest, ResetLeavesTheBoxAsItIs) {
  choose(office);
  dialog.host().setRemembering(false);
  printCovers();
  choose(office);
  EXPECT_EQ(dialog.host().reset(), "");
  EXPECT_FALSE(dialog.host().remembering().isOn);
  EXPECT_THAT(stored(office), ElementsAre(Pair("Remember", "Off")));
  EXPECT_EQ(dialog.host().undoReset(), "");
  EXPECT_THAT(stored(office), ElementsAre(Pair("Remember", "Off")));
}

TEST_F(DialogRememberingTest, RuleLeavesWhatIsStoredAndUsesNothingOfIt) {
  choose(office);
  printCovers();
  const auto before = stored(office);
  TinyDialog ruled;
  ruled.decided.remember = false;
  ruled.decided.file = "/etc/xdg/publishing/dialog/rules.ini";
  EXPECT_FALSE(hasCovers(ruled, office));
  EXPECT_FALSE(ruled.host().remembering().isOn);
  EXPECT_THAT(ruled.host().remembering().against, HasSubstr(ruled.decided.file));
  ruled.host().setRemembering(true);
  EXPECT_FALSE(ruled.host().remembering().isOn);
  ruled.panel().checkBox("PiCheckBox")->click();
  ruled.panel().textField("PiPageNum")->type("5");
  ASSERT_TRUE(ruled.print());
  EXPECT_EQ(ruled.handedOver["VtPageinsertState"], "On");
  EXPECT_EQ(stored(office), before);
}

TEST_F(DialogRememberingTest, PrintDoesNotWaitForAPrinterOfWhichNothingIsUsed) {
  choose(office);
  printCovers();
  TinyDialog ruled;
  ruled.decided.remember = false;
  ruled.answersAtOnce = false;
  ruled.selectPrinter(office);
  EXPECT_TRUE(ruled.print());
  dialog.host().setRemembering(false);
  ASSERT_TRUE(dialog.print());
  TinyDialog off;
  off.answersAtOnce = false;
  off.selectPrinter(office);
  EXPECT_TRUE(off.print());
}

}  // namespace
}  // namespace publishing
