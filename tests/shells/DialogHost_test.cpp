// SPDX-License-Identifier: Apache-2.0
// The panel's host in a print dialog that has no toolkit.
#include "shells/DialogHost.h"

#include <filesystem>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/TinyDialog.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class DialogHostTest : public testing::Test {
 protected:
  DialogHostTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  void choose(const std::string& printer) {
    dialog.selectPrinter(printer);
    dialog.lookAtTab();
  }
  [[nodiscard]] HeadlessCheckBox& box(const char* name) const {
    return *dialog.panel().checkBox(name);
  }
  [[nodiscard]] HeadlessPopUpButton& popUp(const char* name) const {
    return *dialog.panel().popUpButton(name);
  }

  TemporaryFolder folder;
  const std::string office =
      folder.file("Office.ppd", contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd"));
  const std::string studio =
      folder.file("Studio.ppd", contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd"));
  TinyDialog dialog;
};

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
  EXPECT_EQ(dialog.summary(), "Cover Mode: Off · Page Insert: Off");
}

TEST_F(DialogHostTest, JobGetsWhatThePanelSaved) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(4);
  box("CmFrontOutside").click();
  EXPECT_EQ(dialog.summary(), "Cover Mode: On · Page Insert: Off");
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Coated");
  ASSERT_TRUE(dialog.print());
  EXPECT_THAT(dialog.handedOver,
              UnorderedElementsAre(Pair("VtCoverModeState", "On"), Pair("VtCoverModeValue", "1"),
                                   Pair("VtCovermodeRadioButtonState", "1"), Pair("VtCmIndex", "4"),
                                   Pair("VtUnspecified", "1"), Pair("VtPageinsertState", "Off"),
                                   Pair("CoverMediaType", "Coated")));
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
