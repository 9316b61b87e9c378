// SPDX-License-Identifier: Apache-2.0
// What covers begin with when the user has said nothing of their sides.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DialogStartTest : public DialogHostTest {
 protected:
  [[nodiscard]] std::vector<std::string> sides() const {
    std::vector<std::string> sides;
    for (const char* side : {"CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside"}) {
      if (box(side).state() == 1) sides.emplace_back(side);
    }
    return sides;
  }
};

TEST_F(DialogStartTest, CoversBeginWithTheFrontsOutside) {
  choose(office);
  box("CmCheckBox").click();
  EXPECT_EQ(covers().selectedColumn(), 0);
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
  EXPECT_EQ(dialog.summary(), "Front cover on Printer Default, page 1 outside.");
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeValue"], "1");
  EXPECT_EQ(stored(office)["VtCoverModeValue"], "1");
}

TEST_F(DialogStartTest, ClickOnAKindOfCoversLeavesTheFrontsOutside) {
  choose(office);
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  box("CmCheckBox").click();
  for (const int column : {1, 1, 0, 0, 1}) {
    covers().click(column);
    EXPECT_EQ(covers().selectedColumn(), column);
    EXPECT_THAT(sides(), ElementsAre("CmFrontOutside")) << column;
  }
  box("CmBackInside").click();
  box("CmFrontOutside").click();
  covers().click(1);
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCovermodeRadioButtonState"], "2");
  EXPECT_EQ(dialog.handedOver["VtCoverModeValue"], "1");
}

TEST_F(DialogStartTest, SidesThatOneSidedPrintingHidesAreClearedToo) {
  choose(office);
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  box("CmCheckBox").click();
  box("CmFrontInside").click();
  box("CmFrontOutside").click();
  dialog.change([](DialogJob& job) { job.sides = Sides::OneSided; });
  EXPECT_THAT(sides(), IsEmpty());
  covers().click(1);
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
}

TEST_F(DialogStartTest, CoversThatTheUserLeavesBlankStayBlank) {
  choose(office);
  box("CmCheckBox").click();
  box("CmFrontOutside").click();
  EXPECT_THAT(sides(), IsEmpty());
  covers().click(1);
  EXPECT_THAT(sides(), IsEmpty());
  box("CmCheckBox").click();
  box("CmCheckBox").click();
  EXPECT_EQ(covers().selectedColumn(), 1);
  EXPECT_THAT(sides(), IsEmpty());
  dialog.change([](DialogJob& job) { job.reverse = true; });
  dialog.change([](DialogJob& job) { job.reverse = false; });
  EXPECT_THAT(sides(), IsEmpty());
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeValue"], "32");
  TinyDialog next;
  next.selectPrinter(office);
  next.lookAtTab();
  EXPECT_EQ(next.panel().checkBox("CmCheckBox")->state(), 1);
  EXPECT_EQ(next.panel().checkBox("CmFrontOutside")->state(), 0);
}

TEST_F(DialogStartTest, RememberedSidesAreNotAddedTo) {
  choose(office);
  box("CmCheckBox").click();
  covers().click(1);
  box("CmBackInside").click();
  box("CmFrontOutside").click();
  ASSERT_TRUE(dialog.print());
  choose(office);
  EXPECT_THAT(sides(), ElementsAre("CmBackInside"));
  box("CmCheckBox").click();
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  EXPECT_THAT(sides(), ElementsAre("CmBackInside"));
}

TEST_F(DialogStartTest, RememberedInsertsDoNotStandInTheWay) {
  choose(office);
  box("PiCheckBox").click();
  pages().type("5");
  ASSERT_TRUE(dialog.print());
  choose(office);
  box("CmCheckBox").click();
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
  EXPECT_EQ(pages().stringValue(), "5");
}

TEST_F(DialogStartTest, CoverPaperChosenInTheDialogsOwnTabsBeginsThemToo) {
  choose(office);
  dialog.change([](DialogJob& job) { job.options["CoverMediaType"] = "Leather"; });
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_EQ(covers().selectedColumn(), 0);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 5);
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Leather");
}

TEST_F(DialogStartTest, DriverWhoseFirstChoiceIsNoPaperBeginsWithAPaper) {
  std::string ppd = contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd");
  const std::string first = "*CoverMediaType PrnDef/Printer Default: \"\"\n";
  ASSERT_NE(ppd.find(first), std::string::npos);
  ppd.erase(ppd.find(first), first.size());
  choose(folder.file("NoneFirst.ppd", ppd));
  ASSERT_EQ(popUp("CmMediaType").itemTitleAtIndex(0), "No Cover");
  EXPECT_EQ(box("CmCheckBox").state(), 0) << "by looking";
  box("CmCheckBox").click();
  EXPECT_EQ(popUp("CmMediaType").titleOfSelectedItem(), "Plain Paper");
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
  popUp("CmMediaType").choose(4);
  box("CmCheckBox").click();
  box("CmCheckBox").click();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 4);
}

TEST_F(DialogStartTest, ResetBeginsAnew) {
  choose(office);
  box("CmCheckBox").click();
  box("CmFrontOutside").click();
  EXPECT_EQ(dialog.host().reset(), "");
  box("CmCheckBox").click();
  EXPECT_THAT(sides(), ElementsAre("CmFrontOutside"));
}

}  // namespace
}  // namespace publishing
