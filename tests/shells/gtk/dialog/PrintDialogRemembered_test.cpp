// SPDX-License-Identifier: Apache-2.0
// In a real print dialog: what is remembered and cannot be printed is said, and faults are shown
// where they are.
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/StoredSettings.h"
#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::SizeIs;

class PrintDialogRememberedTest : public testing::Test {
 protected:
  PrintDialogRememberedTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  static void rememberMediumThatIsGone() {
    StoredSettings().store("Office", {{"VtCoverModeState", "On"},
                                      {"VtCoverModeValue", "1"},
                                      {"VtCovermodeRadioButtonState", "1"},
                                      {"VtCmIndex", "5"},
                                      {"CoverMediaType", "Velvet"},
                                      {"CoverMediaTypeText", "Velvet"}});
  }
};

TEST_F(PrintDialogRememberedTest, AlertLeadsToTheFaultOnItsTab) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.openPanelTab(1);
  user.click("PiCheckBox");
  user.type("5,14-12,8");
  user.openPanelTab(0);
  user.openTab("General");
  EXPECT_FALSE(user.print());
  ASSERT_THAT(user.alerts, SizeIs(1));
  EXPECT_THAT(user.alerts[0].message,
              AllOf(HasSubstr("bigger than the beginning page number"),
                    HasSubstr("“14-12”: the range must end at page 15 to 22")));
  EXPECT_EQ(user.frontTab(), "Publishing");
  EXPECT_EQ(user.frontPanelTab(), 1);
  EXPECT_EQ(user.selection("PiPageNum"), "14-12");
  EXPECT_TRUE(user.hasFocus("PiPageNum"));
}

TEST_F(PrintDialogRememberedTest, MediumThatIsGoneIsSaidInTheTab) {
  rememberMediumThatIsGone();
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  EXPECT_TRUE(user.shows("Velvet is no longer offered for covers"));
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  user.choosePrinter("Studio");
  user.openTab("Publishing");
  EXPECT_FALSE(user.shows("Velvet"));
}

TEST_F(PrintDialogRememberedTest, MediumThatIsGoneIsAskedAboutWhenNobodyLooked) {
  rememberMediumThatIsGone();
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  user.watch.answerNext(GTK_RESPONSE_CANCEL);
  EXPECT_FALSE(user.print());
  ASSERT_THAT(user.alerts, SizeIs(1));
  EXPECT_THAT(user.alerts[0].message, HasSubstr("Velvet is no longer offered"));
  EXPECT_EQ(user.frontTab(), "Publishing");
}

TEST_F(PrintDialogRememberedTest, FaultyListDoesNotBlockAUserWhoDoesNotLook) {
  StoredSettings().store("Office", {{"VtPageinsertState", "On"},
                                    {"VtPageinsertValue", "0"},
                                    {"VtPiIndex", "2"},
                                    {"PageMediaType", "Recycled"},
                                    {"VtPageinsertNums", "5,1"}});
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  EXPECT_TRUE(user.print());
  ASSERT_THAT(user.alerts, SizeIs(1));
  EXPECT_THAT(user.alerts[0].message, HasSubstr("“1”: page 2 is the lowest"));
  EXPECT_EQ(user.setting("cups-VtPageinsertState"), "Off");
  EXPECT_EQ(user.setting("cups-PageMediaType"), "PrnDef");
  EXPECT_EQ(StoredSettings().load("Office").values["VtPageinsertNums"], "5,1");
}

}  // namespace
}  // namespace publishing
