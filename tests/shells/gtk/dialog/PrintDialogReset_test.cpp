// SPDX-License-Identifier: Apache-2.0
// Reset, and what a real print dialog shows of the panel on its other tabs.
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/StoredSettings.h"
#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

using testing::IsEmpty;

class PrintDialogResetTest : public testing::Test {
 protected:
  PrintDialogResetTest() {
    forget();
    rememberCovers();
  }

  static void forget() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  static void rememberCovers() {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 3);
    EXPECT_TRUE(user.print());
  }

  static std::string tabLabel(const PrintDialogUser& user) {
    return gtk_label_get_text(GTK_LABEL(user.tabLabel()));
  }

  // Once the dialog has the room that it asks for: its list of printers widens it as it fills.
  static std::pair<int, int> finalSizeOf(const PrintDialogUser& user) {
    GtkRequisition wanted = {};
    GtkAllocation given = {};
    PrintDialogUser::waitUntil("the dialog's size", [&] {
      gtk_widget_get_preferred_size(user.dialog(), nullptr, &wanted);
      gtk_widget_get_allocation(user.dialog(), &given);
      return given.width >= wanted.width && given.height >= wanted.height;
    });
    return {given.width, given.height};
  }
};

TEST_F(PrintDialogResetTest, RememberedCoversAreSeenOnGeneralWithoutAShift) {
  forget();
  const auto sizeWithoutThem = [] {
    PrintDialogUser user;
    user.choosePrinterOnly("Office");
    EXPECT_EQ(tabLabel(user), "Publishing");
    return finalSizeOf(user);
  }();
  rememberCovers();
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  PrintDialogUser::waitUntil("the mark", [&] { return tabLabel(user) == "Publishing ✓"; });
  EXPECT_NE(user.frontTab(), "Publishing");
  EXPECT_TRUE(user.showsAnywhere("Covers are on: see the “Publishing” tab."));
  EXPECT_EQ(finalSizeOf(user), sizeWithoutThem);
  user.choosePrinterOnly("Studio");
  EXPECT_EQ(tabLabel(user), "Publishing");
  EXPECT_FALSE(user.showsAnywhere("Covers are on"));
}

TEST_F(PrintDialogResetTest, WithoutItsTickNothingIsRememberedForThePrinter) {
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.openTab("Publishing");
    EXPECT_TRUE(user.isTicked("Remember"));
    user.click("Remember");
    user.choosePrinter("Studio");
    EXPECT_TRUE(user.isTicked("Remember"));
    user.choosePrinter("Office");
    EXPECT_TRUE(user.isTicked("Remember")) << "it was not printed";
    user.click("Remember");
    ASSERT_TRUE(user.print());
  }
  PrintDialogUser user;
  user.choosePrinter("Office");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_FALSE(user.isTicked("Remember"));
}

TEST_F(PrintDialogResetTest, ARuleGreysTheTickAndSaysWhere) {
  const std::string folder = std::string(g_get_user_config_dir()) + "/publishing/dialog";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/rules.ini") << "[Dialog]\nRemember=false\n";
  PrintDialogUser user;
  user.choosePrinter("Office");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_FALSE(user.isTicked("Remember"));
  EXPECT_FALSE(user.isSensitive("Remember"));
  EXPECT_NE(user.tooltip("Remember").find("rules.ini"), std::string::npos);
}

TEST_F(PrintDialogResetTest, ResetAndUndo) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  ASSERT_TRUE(user.isTicked("CmCheckBox"));
  user.click("Reset");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_EQ(tabLabel(user), "Publishing");
  EXPECT_THAT(StoredSettings().load("Office").values, IsEmpty());
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
  EXPECT_EQ(user.buttonLabel("Reset"), "_Undo Reset");
  user.click("Reset");
  EXPECT_TRUE(user.isTicked("CmCheckBox"));
  EXPECT_EQ(user.picked("CmMediaType"), 3);
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Thick");
  EXPECT_EQ(StoredSettings().load("Office").values.at("CoverMediaType"), "Thick");
  EXPECT_EQ(user.buttonLabel("Reset"), "_Reset");
}

}  // namespace
}  // namespace publishing
