// SPDX-License-Identifier: Apache-2.0
// The panel's host in a print dialog that has no toolkit.
#include "shells/DialogHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/sheets/SheetText.h"
#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::UnorderedElementsAre;

TEST_F(DialogHostTest, TabSaysWhyThereIsNoPanel) {
  EXPECT_THAT(dialog.message(), HasSubstr("Choose a printer"));
  dialog.selectFile();
  EXPECT_THAT(dialog.message(), HasSubstr("print to a file"));
  dialog.selectPrinter(folder / "missing.ppd");
  EXPECT_THAT(dialog.message(), HasSubstr("missing.ppd"));
  const std::string plain =
      folder.file("Plain.ppd", "*PPD-Adobe: \"4.3\"\n*ModelName: \"Plain\"\n");
  dialog.selectPrinter(plain);
  EXPECT_THAT(dialog.message(), HasSubstr("publishing printer enable -d " + plain));
  dialog.answersAtOnce = false;
  dialog.selectPrinter(office);
  EXPECT_THAT(dialog.message(), HasSubstr("Asking the printer"));
  dialog.becomeLate();
  EXPECT_THAT(dialog.message(), HasSubstr("is not responding"));
  EXPECT_FALSE(dialog.hasPanel());
  EXPECT_TRUE(dialog.print());
  EXPECT_THAT(dialog.handedOver, IsEmpty());
}

TEST_F(DialogHostTest, PanelIsMadeWhenTheUserLooks) {
  dialog.selectPrinter(office);
  EXPECT_FALSE(dialog.hasPanel());
  dialog.lookAtTab();
  EXPECT_TRUE(dialog.hasPanel());
  EXPECT_EQ(dialog.summary(), "No covers and no inserts.");
}

TEST_F(DialogHostTest, JobGetsWhatThePanelSaved) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(4);
  EXPECT_EQ(dialog.summary(), "Front cover on Coated Paper, page 1 outside.");
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Coated");
  ASSERT_TRUE(dialog.print());
  EXPECT_THAT(dialog.handedOver,
              UnorderedElementsAre(Pair("VtCoverModeState", "On"), Pair("VtCoverModeValue", "1"),
                                   Pair("VtCovermodeRadioButtonState", "1"), Pair("VtCmIndex", "4"),
                                   Pair("VtUnspecified", "1"), Pair("VtPageinsertState", "Off"),
                                   Pair("CoverMediaType", "Coated")));
}

// Covers on both sides and inserts in a two-sided job.
std::string sheetsIn(const JobSheets& job) {
  return job.plan ? written(job.plan->sheets) : "unknown";
}

TEST_F(DialogHostTest, SheetsFollowEveryGesture) {
  dialog.pages = 8;
  choose(office);
  EXPECT_EQ(sheetsIn(dialog.sheets()), "B1 B2 B3 B4 B5 B6 B7 B8");
  wishForEverything();
  EXPECT_EQ(sheetsIn(dialog.sheets()), "C1|- B2|3 I4|- I5|- I6|- B7|- C-|8");
  EXPECT_EQ(dialog.summary(),
            "Front and back cover on Coated Paper, page 1 outside on the front and page 8 outside "
            "on the back; pages 4\u20136 on sheets of Recycled Paper. 7 sheets in all.\n"
            "No insert for page 9: the last page comes before it.");
  box("PiPrintOnFront").click();
  EXPECT_EQ(sheetsIn(dialog.sheets()), "C1|- B2|3 I-|- B4|- I-|- B5|- I-|- B6|7 C-|8");
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  EXPECT_EQ(sheetsIn(dialog.sheets()), "B1|2 B3|4 B5|6 B7|8");
}

TEST_F(DialogHostTest, SaysThatTheDriverHasToMakeTheCovers) {
  const std::string note = "\nThe covers and inserts are left to the driver of " + studio +
                           ". If it makes none, an administrator can add them: "
                           "publishing printer enable -d " +
                           studio;
  choose(studio);
  EXPECT_EQ(dialog.summary(), "No covers and no inserts.");
  box("CmCheckBox").click();
  EXPECT_THAT(dialog.summary(), EndsWith(note));
  box("CmCheckBox").click();
  EXPECT_EQ(dialog.summary(), "No covers and no inserts.");
}

TEST_F(DialogHostTest, SheetsFollowTheDialogsOwnTabs) {
  dialog.pages = 8;
  choose(office);
  dialog.change([](DialogJob& job) { job.copies = 3; });
  EXPECT_EQ(dialog.sheets().plan->sheetCount(), 24);
  dialog.change([](DialogJob& job) { job.pageRanges = "2-5"; });
  EXPECT_EQ(dialog.sheets().plan->sheetCount(), 12);
  dialog.change([](DialogJob& job) { job.pageSet = "even"; });
  EXPECT_EQ(dialog.sheets().plan->sheetCount(), 6);
  dialog.change([](DialogJob& job) { job.numberUp = 4; });
  EXPECT_EQ(dialog.sheets().plan->sheetCount(), 3);
}

TEST_F(DialogHostTest, SheetsOfADocumentOfUnknownLengthAreAScheme) {
  choose(office);
  wishForEverything();
  EXPECT_FALSE(dialog.sheets().plan);
  EXPECT_THAT(dialog.summary(), HasSubstr("pages 4\u20136 and 9 on sheets"));
}

TEST_F(DialogHostTest, SheetsShownAreThoseOfTheJob) {
  dialog.pages = 30;
  choose(office);
  wishForEverything();
  const JobSheets shown = dialog.sheets();
  ASSERT_TRUE(dialog.print());
  PPDDocument ppd = PPDDocument::openFile(office);
  JobTicket::Options options = dialog.handedOver;
  options["sides"] = keywordOf(dialog.settings().sides);
  ppd.mark(options);
  EXPECT_EQ(sheetsIn(sheetsOf(options, &ppd, dialog.pages)), sheetsIn(shown));
}

TEST_F(DialogHostTest, SheetsOfAListThatIsNotInOrderAreThoseBeforeItsFault) {
  dialog.pages = 6;
  choose(office);
  box("PiCheckBox").click();
  dialog.panel().textField("PiPageNum")->type("2,3,5-");
  EXPECT_EQ(sheetsIn(dialog.sheets()), "B1 I- B2 I- B3 B4 B5 B6");
  EXPECT_THAT(dialog.alerts, IsEmpty());
}

TEST_F(DialogHostTest, BadPageListKeepsTheDialogOpen) {
  choose(office);
  box("PiCheckBox").click();
  dialog.panel().textField("PiPageNum")->type("1");
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.alerts, ElementsAre(HasSubstr("between 2 and 511")));
  EXPECT_TRUE(dialog.isTabInFront());
  EXPECT_THAT(dialog.handedOver, IsEmpty());
  dialog.panel().textField("PiPageNum")->type("2");
  EXPECT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtPageinsertNums"], "2,");
}

TEST_F(DialogHostTest, ConflictsAreAskedAbout) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(4);
  dialog.change([](DialogJob& job) { job.options["InputSlot"] = "Tray2"; });
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.alerts, ElementsAre(HasSubstr("Coated Paper. Conflicts with Paper Source")));
  EXPECT_THAT(dialog.handedOver, IsEmpty());
  dialog.insists = true;
  EXPECT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["CoverMediaType"], "Coated");
}

TEST_F(DialogHostTest, PanelFollowsTheDialogsOwnTabs) {
  choose(office);
  box("CmCheckBox").click();
  HeadlessCheckBox& inside = box("CmFrontInside");
  EXPECT_FALSE(inside.isEnabled());
  EXPECT_THAT(inside.tooltip(), HasSubstr("two-sided"));
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  EXPECT_TRUE(inside.isEnabled());
  EXPECT_EQ(inside.tooltip(), "");
  dialog.change([](DialogJob& job) { job.options["MediaType"] = "Transparency"; });
  EXPECT_THAT(popUp("CmMediaType").tooltip(), HasSubstr("Tray 2: conflicts with Media Type"));
  dialog.change([](DialogJob& job) { job.reverse = true; });
  EXPECT_FALSE(box("CmCheckBox").isEnabled());
  EXPECT_THAT(box("CmCheckBox").tooltip(), HasSubstr("Reverse"));
}

TEST_F(DialogHostTest, ReasonsFollowAMediumThatThePanelItselfMarks) {
  choose(office);
  box("PiCheckBox").click();
  box("CmCheckBox").click();
  EXPECT_THAT(popUp("PiMediaType").tooltip(), Not(HasSubstr("Tray 2")));
  popUp("CmMediaType").choose(4);
  EXPECT_FALSE(popUp("PiMediaType").isItemEnabledAtIndex(7));
  EXPECT_THAT(popUp("PiMediaType").tooltip(), HasSubstr("Tray 2: conflicts with Cover Paper"));
  popUp("CmMediaType").choose(0);
  EXPECT_TRUE(popUp("PiMediaType").isItemEnabledAtIndex(7));
  EXPECT_THAT(popUp("PiMediaType").tooltip(), Not(HasSubstr("Tray 2")));
}

TEST_F(DialogHostTest, MediumIsNotGreyedByTheOneThatItWouldReplace) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(4);
  EXPECT_TRUE(popUp("CmMediaType").isItemEnabledAtIndex(7));
  EXPECT_THAT(popUp("CmMediaType").tooltip(), Not(HasSubstr("Tray")));
  dialog.change([](DialogJob& job) { job.options["MediaType"] = "Transparency"; });
  EXPECT_FALSE(popUp("CmMediaType").isItemEnabledAtIndex(7));
  EXPECT_THAT(popUp("CmMediaType").tooltip(), HasSubstr("Tray 2: conflicts with Media Type"));
  EXPECT_THAT(popUp("CmMediaType").tooltip(), Not(HasSubstr("Cover Paper")));
}

TEST_F(DialogHostTest, TraysStandApartFromPapers) {
  choose(office);
  for (const char* menu : {"CmMediaType", "PiMediaType"}) {
    ASSERT_TRUE(popUp(menu).separated()) << menu;
    EXPECT_EQ(popUp(menu).itemTitleAtIndex(*popUp(menu).separated()), "Tray 1") << menu;
    EXPECT_EQ(popUp(menu).numberOfItems(), 11) << menu;
  }
}

TEST_F(DialogHostTest, NoPaperIsGreyedWhileCoversAreOn) {
  choose(office);
  ASSERT_EQ(popUp("CmMediaType").itemTitleAtIndex(1), "No Cover");
  box("CmCheckBox").click();
  EXPECT_FALSE(popUp("CmMediaType").isItemEnabledAtIndex(1));
  EXPECT_EQ(popUp("CmMediaType").tooltip(),
            "No Cover: untick “Add covers to the document” for that");
  EXPECT_TRUE(popUp("CmMediaType").isItemEnabledAtIndex(2));
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  EXPECT_FALSE(popUp("CmMediaType").isItemEnabledAtIndex(1));
  EXPECT_EQ(popUp("PiMediaType").tooltip(), "Needs sheets: tick “Add sheets between the pages”.");
  // What chooses it on another tab unticks the box itself.
  dialog.change([](DialogJob& job) { job.options["CoverMediaType"] = "None"; });
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_TRUE(popUp("CmMediaType").isItemEnabledAtIndex(1));
}

TEST_F(DialogHostTest, PrinterThatTheDialogStillAsksIsNamed) {
  dialog.selectPending("Office");
  EXPECT_THAT(dialog.message(), HasSubstr("Asking the printer Office what it can do"));
  EXPECT_TRUE(dialog.print());
}

TEST_F(DialogHostTest, MediaGoBothWays) {
  choose(office);
  dialog.change([](DialogJob& job) { job.options["PageMediaType"] = "Recycled"; });
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 2);
  popUp("PiMediaType").choose(3);
  EXPECT_EQ(dialog.choice("PageMediaType"), "Thick");
  EXPECT_EQ(dialog.choice("CoverMediaType"), "PrnDef");
}

TEST_F(DialogHostTest, SettingsAreRememberedForEachPrinter) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(3);
  ASSERT_TRUE(dialog.print());
  choose(studio);
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  choose(office);
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 3);
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Thick");
}

}  // namespace
}  // namespace publishing
