// SPDX-License-Identifier: Apache-2.0
// A program that destroys its print dialog, or selects another printer, while the panel asks
// something in a window of its own.
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/StoredSettings.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintDialogHost.h"
#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class PrintDialogModalTest : public testing::Test {
 protected:
  PrintDialogModalTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  static void typeList(PrintDialogUser& user, const char* list) {
    user.choosePrinter("Office");
    user.openTab("Publishing");
    user.click("PiCheckBox");
    user.type(list);
  }

  static void makeConflict(PrintDialogUser& user) {
    typeList(user, "3");
    user.pick("PiMediaType", 3);
    user.setDialogOption("gtk-paper-source", "Tray3");
    user.watch.answerNext(GTK_RESPONSE_YES);
  }

  static void destroyAtTheQuestion(PrintDialogUser& user) {
    user.watch.onShown = [&user](GtkDialog*) { toolkit::destroyWindow(GTK_WINDOW(user.dialog())); };
  }

  static void selectStudioAtTheQuestion(PrintDialogUser& user) {
    user.watch.onShown = [&user](GtkDialog*) { user.choosePrinterOnly("Studio"); };
  }

  static void expectNothingStored() {
    for (const char* queue : {"Office", "Studio"})
      EXPECT_THAT(StoredSettings().load(queue).values, IsEmpty()) << queue;
  }
};

constexpr const char* kFaultyLists[] = {"1", "", "-"};

TEST_F(PrintDialogModalTest, DialogDestroyedDuringAnAlertIsSurvived) {
  for (const char* list : kFaultyLists) {
    PrintDialogUser user;
    typeList(user, list);
    destroyAtTheQuestion(user);
    EXPECT_FALSE(user.print()) << list;
    EXPECT_EQ(PrintDialogHost::of(GTK_PRINT_UNIX_DIALOG(user.dialog())), nullptr);
    expectNothingStored();
  }
}

TEST_F(PrintDialogModalTest, DialogDestroyedDuringTheConflictQuestionIsSurvived) {
  PrintDialogUser user;
  makeConflict(user);
  destroyAtTheQuestion(user);
  EXPECT_FALSE(user.print());
  expectNothingStored();
}

TEST_F(PrintDialogModalTest, PrinterChangedDuringAnAlertGetsAPanelOfItsOwn) {
  for (const char* list : kFaultyLists) {
    PrintDialogUser user;
    typeList(user, list);
    selectStudioAtTheQuestion(user);
    EXPECT_FALSE(user.print()) << list;
    EXPECT_THAT(user.alerts, SizeIs(1));
    EXPECT_EQ(user.setting("cups-VtPageinsertState"), "(none)");
    user.watch.onShown = nullptr;
    user.choosePrinter("Studio");
    EXPECT_FALSE(user.isTicked("PiCheckBox")) << list;
    expectNothingStored();
  }
}

TEST_F(PrintDialogModalTest, PrintAnywayIsNotMeantForAnotherPrinter) {
  PrintDialogUser user;
  makeConflict(user);
  selectStudioAtTheQuestion(user);
  EXPECT_FALSE(user.print());
  EXPECT_THAT(user.alerts, SizeIs(1));
  EXPECT_EQ(user.setting("cups-VtPageinsertState"), "(none)");
  EXPECT_EQ(user.setting("cups-PageMediaType"), "PrnDef");
  expectNothingStored();
}

}  // namespace
}  // namespace publishing
