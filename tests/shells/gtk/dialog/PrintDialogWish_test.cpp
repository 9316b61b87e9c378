// SPDX-License-Identifier: Apache-2.0
// In a real print dialog: what the user wants lasts while the job or an unticked box hides it.
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

class PrintDialogWishTest : public testing::Test {
 protected:
  PrintDialogWishTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  static void wantAll(PrintDialogUser& user, const char* list) {
    user.choosePrinter("Office");
    user.openTab("Publishing");
    user.setDialogOption("gtk-duplex", "DuplexNoTumble");
    user.click("CmCheckBox");
    user.click("CmFrontAndBackCell");
    user.click("CmFrontInside");
    user.pick("CmMediaType", 4);
    user.click("PiCheckBox");
    user.type(list);
    user.pick("PiMediaType", 2);
    user.click("PiPrintOnBack");
  }

  static void expectAll(const PrintDialogUser& user, const char* list) {
    for (const char* box : {"CmCheckBox", "CmFrontInside", "PiCheckBox", "PiPrintOnBack"})
      EXPECT_TRUE(user.isTicked(box)) << box;
    EXPECT_TRUE(user.isTicked("CmFrontAndBackCell"));
    EXPECT_EQ(user.picked("CmMediaType"), 4);
    EXPECT_EQ(user.picked("PiMediaType"), 2);
    EXPECT_EQ(user.text("PiPageNum"), list);
    EXPECT_EQ(user.setting("cups-CoverMediaType"), "Coated");
  }
};

TEST_F(PrintDialogWishTest, LayoutOrderAndSidesAndBackLoseNothing) {
  for (const char* list : {"5,12-14", "12-"}) {
    PrintDialogUser user;
    wantAll(user, list);
    user.setDialogOption("gtk-n-up", "2");
    EXPECT_FALSE(user.isTicked("CmCheckBox"));
    EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
    user.setDialogOption("gtk-n-up", "1");
    expectAll(user, list);
    user.setReverse(true);
    EXPECT_FALSE(user.isTicked("PiCheckBox"));
    user.setReverse(false);
    expectAll(user, list);
    user.setDialogOption("gtk-duplex", "None");
    EXPECT_FALSE(user.isTicked("CmFrontInside"));
    user.setDialogOption("gtk-duplex", "DuplexNoTumble");
    expectAll(user, list);
  }
}

TEST_F(PrintDialogWishTest, UntickedAndTickedAgainShowsTheSame) {
  PrintDialogUser user;
  wantAll(user, "5,12-14");
  user.click("CmCheckBox");
  user.click("PiCheckBox");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
  user.click("PiCheckBox");
  user.click("CmCheckBox");
  expectAll(user, "5,12-14");
}

TEST_F(PrintDialogWishTest, PrintWhileThePrinterIsAskedKeepsRememberedCovers) {
  {
    PrintDialogUser user;
    wantAll(user, "5");
    ASSERT_TRUE(user.print());
  }
  PrintDialogUser user;
  user.selectPrinter("Office");
  ASSERT_FALSE(user.hasPanel());
  user.print();
  PrintDialogUser::waitUntil("the job", [&] { return user.lastJob() != nullptr; });
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "On");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Coated");
}

}  // namespace
}  // namespace publishing
