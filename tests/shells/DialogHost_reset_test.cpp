// SPDX-License-Identifier: Apache-2.0
// Reset, and what the dialog's other tabs show of the panel, without a toolkit.
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class DialogResetTest : public DialogHostTest {
 protected:
  // Covers on leather are remembered for the printer.
  void rememberCovers(const std::string& printer) {
    choose(printer);
    box("CmCheckBox").click();
    covers().click(1);
    popUp("CmMediaType").choose(5);
    box("CmBackInside").click();
    ASSERT_TRUE(dialog.print());
    ASSERT_THAT(stored(printer), Not(IsEmpty()));
  }
};

TEST_F(DialogResetTest, RememberedFeaturesShowOutsideTheTab) {
  rememberCovers(office);
  TinyDialog next;
  EXPECT_EQ(next.outsideTab(), "");
  next.selectPrinter(office);
  EXPECT_THAT(next.outsideTab(), HasSubstr("Covers are on"));
  EXPECT_FALSE(next.isTabInFront());
  next.selectPrinter(studio);
  EXPECT_EQ(next.outsideTab(), "");
  next.lookAtTab();
  next.panel().checkBox("PiCheckBox")->click();
  EXPECT_THAT(next.outsideTab(), HasSubstr("Inserted sheets are on"));
  next.panel().checkBox("CmCheckBox")->click();
  EXPECT_THAT(next.outsideTab(), HasSubstr("Covers and inserted sheets are on"));
  next.change([](DialogJob& job) { job.reverse = true; });
  EXPECT_EQ(next.outsideTab(), "");
  next.selectFile();
  EXPECT_EQ(next.outsideTab(), "");
}

TEST_F(DialogResetTest, ResetSwitchesOffAndForgets) {
  rememberCovers(office);
  choose(office);
  ASSERT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_FALSE(dialog.host().canUndoReset());
  EXPECT_EQ(dialog.host().reset(), "");
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_THAT(stored(office), IsEmpty());
  EXPECT_EQ(dialog.outsideTab(), "");
  box("CmCheckBox").click();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 0);
  EXPECT_EQ(covers().selectedColumn(), 0);
  EXPECT_EQ(box("CmBackInside").state(), 0);
  box("CmCheckBox").click();
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "Off");
}

TEST_F(DialogResetTest, ResetCanBeUndoneWhileTheDialogLasts) {
  rememberCovers(office);
  const StoredSettings::Values before = stored(office);
  choose(office);
  box("PiCheckBox").click();
  pages().type("5,8");
  EXPECT_EQ(dialog.host().reset(), "");
  choose(studio);
  EXPECT_FALSE(dialog.host().canUndoReset());
  EXPECT_EQ(dialog.host().undoReset(), "");
  choose(office);
  ASSERT_TRUE(dialog.host().canUndoReset());
  EXPECT_EQ(dialog.host().undoReset(), "");
  EXPECT_FALSE(dialog.host().canUndoReset());
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 5);
  EXPECT_EQ(box("CmFrontOutside").state(), 1);
  EXPECT_EQ(box("CmBackInside").state(), 1);
  EXPECT_EQ(pages().stringValue(), "5,8");
  EXPECT_EQ(stored(office), before);
}

TEST_F(DialogResetTest, WhatCannotBeForgottenIsSaidAndStays) {
  rememberCovers(office);
  choose(office);
  const std::string file = StoredSettings().fileOf(office);
  std::filesystem::remove(file);
  std::filesystem::create_directories(file + "/in");
  // No name is left that it could be kept under.
  for (int number = 1; number <= 999; ++number)
    std::ofstream(file + ".broken-" + std::to_string(number)) << "earlier";
  EXPECT_THAT(dialog.host().reset(), HasSubstr("cannot be removed"));
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_FALSE(dialog.host().canUndoReset());
}

TEST_F(DialogResetTest, WithoutThePanelNothingHappens) {
  rememberCovers(office);
  dialog.selectFile();
  EXPECT_EQ(dialog.host().reset(), "");
  EXPECT_THAT(stored(office), Not(IsEmpty()));
}

}  // namespace
}  // namespace publishing
