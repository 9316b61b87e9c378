// SPDX-License-Identifier: Apache-2.0
// The menu of presets in a real print dialog.
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/presets/Presets.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintDialogHost.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kSaveAs = "Save as…";
constexpr const char* kDelete = "Delete";

GtkEntry* entryIn(GtkWidget* dialog) {
  GtkEntry* entry = nullptr;
  gestures::forEachWidget(dialog, [&](GtkWidget* widget) {
    if (GTK_IS_ENTRY(widget)) entry = GTK_ENTRY(widget);
  });
  return entry;
}

class PrintDialogPresetsTest : public testing::Test {
 protected:
  PrintDialogPresetsTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  // Covers on coated paper.
  static void makeCovers(PrintDialogUser& user) {
    user.choosePrinter("Office");
    user.openTab("Publishing");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 4);
  }

  // The next question for a name gets these, one after the other, each with the default button.
  static void answerWithNames(PrintDialogUser& user, std::vector<std::string> names) {
    user.watch.onShown = [names](GtkDialog* dialog) {
      GtkEntry* entry = entryIn(GTK_WIDGET(dialog));
      if (entry == nullptr) return;
      for (const std::string& name : names) {
        toolkit::setText(entry, name);
        if (&name != &names.back()) gtk_dialog_response(dialog, GTK_RESPONSE_OK);
      }
    };
  }

  static std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const StoredPreset& stored : Presets().list().presets)
      names.push_back(stored.preset.name);
    return names;
  }
};

TEST_F(PrintDialogPresetsTest, MenuSavesUsesAndDeletes) {
  PrintDialogUser user;
  makeCovers(user);
  answerWithNames(user, {"Annual_report"});
  EXPECT_THAT(user.choosePreset(kSaveAs), ElementsAre("No presets yet", kSaveAs, kDelete));
  ASSERT_THAT(names(), ElementsAre("Annual_report"));
  user.watch.onShown = nullptr;

  user.click("CmCheckBox");
  ASSERT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_THAT(user.choosePreset("Annual_report"), ElementsAre("Annual_report", kSaveAs, kDelete));
  EXPECT_TRUE(user.isTicked("CmCheckBox"));
  EXPECT_EQ(user.picked("CmMediaType"), 4);
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Coated");

  // Going back is the default.
  user.choosePreset(kDelete, "Annual_report");
  EXPECT_THAT(names(), SizeIs(1));
  user.watch.answerNext(GTK_RESPONSE_YES);
  user.choosePreset(kDelete, "Annual_report");
  EXPECT_THAT(names(), IsEmpty());
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "On");
}

TEST_F(PrintDialogPresetsTest, OneThatIsThereIsReplacedOnlyIfTheUserWants) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  PrintDialogUser user;
  makeCovers(user);
  answerWithNames(user, {" report "});
  user.choosePreset(kSaveAs);
  ASSERT_THAT(user.alerts, SizeIs(2));
  EXPECT_THAT(user.alerts.back().title, HasSubstr("“report” already"));
  EXPECT_FALSE(Presets().find("Report").preset.hasCover());
}

TEST_F(PrintDialogPresetsTest, ABadNameIsAskedForAgain) {
  PrintDialogUser user;
  makeCovers(user);
  answerWithNames(user, {"", std::string(101, 'x'), "Report"});
  user.choosePreset(kSaveAs);
  ASSERT_THAT(user.alerts, SizeIs(1));
  EXPECT_THAT(names(), ElementsAre("Report"));
}

TEST_F(PrintDialogPresetsTest, DialogDestroyedAtTheQuestionIsSurvived) {
  for (const bool isNamed : {true, false}) {
    if (!isNamed) Presets().store({.name = "Report"}, Presets::Existing::Keep);
    PrintDialogUser user;
    makeCovers(user);
    user.watch.onShown = [&user](GtkDialog*) { toolkit::destroyWindow(GTK_WINDOW(user.dialog())); };
    if (isNamed) {
      user.choosePreset(kSaveAs);
    } else {
      user.choosePreset(kDelete, "Report");
    }
    EXPECT_EQ(PrintDialogHost::of(GTK_PRINT_UNIX_DIALOG(user.dialog())), nullptr);
  }
  EXPECT_THAT(names(), ElementsAre("Report"));
}

TEST_F(PrintDialogPresetsTest, AMissingPaperIsSaidInTheTab) {
  Presets().store({.name = "Gold", .cover = "front", .coverMedium = {"Gold", "Gold Leaf"}},
                  Presets::Existing::Keep);
  PrintDialogUser user;
  makeCovers(user);
  user.choosePreset("Gold");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_TRUE(user.shows("Gold Leaf is not offered for covers"));
}

}  // namespace
}  // namespace publishing
