// SPDX-License-Identifier: Apache-2.0
// A real print dialog against a real print server, up to the job that the program gets.
#include "shells/gtk/dialog/PrintDialogHost.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shells/ExtensionNames.h"
#include "tests/cups/PrivateCups.h"
#include "tests/support/PrintDialogUser.h"

namespace publishing {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kPPD = TEST_DATA "/zephrel-ps-9000.ppd";

class Printers final : public testing::Environment {
 public:
  void SetUp() override {
    PrivateCups::instance().addQueue("Office", kPPD);
    PrivateCups::instance().addQueue("Studio", kPPD);
  }
};

const auto* const server = testing::AddGlobalTestEnvironment(new PrivateCups);
const auto* const printers = testing::AddGlobalTestEnvironment(new Printers);

class PrintDialogHostTest : public testing::Test {
 protected:
  // No test finds what another one has stored.
  PrintDialogHostTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }
};

TEST_F(PrintDialogHostTest, PanelIsShownForAPrinterThatHasItsOptions) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  ASSERT_TRUE(user.hasPanel());
  EXPECT_TRUE(gtk_widget_get_sensitive(user.tabLabel()));
  user.openTab("Publishing");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_TRUE(user.isSensitive("CmCheckBox"));
  EXPECT_TRUE(user.shows("No covers and no inserts."));
}

TEST_F(PrintDialogHostTest, TotalIsSaidWhenTheProgramTellsTheNumberOfPages) {
  PrintDialogUser user;
  g_object_set_data(G_OBJECT(user.dialog()), DOCUMENT_PAGES_KEY, GINT_TO_POINTER(24));
  user.choosePrinter("Office");
  user.openTab("Publishing");
  EXPECT_TRUE(user.shows("No covers and no inserts. 24 sheets in all."));
  user.setDialogOption("gtk-duplex", "DuplexNoTumble");
  PrintDialogUser::waitUntil("the sheets of a two-sided job", [&] {
    return user.shows("No covers and no inserts. 12 sheets in all.");
  });
}

TEST_F(PrintDialogHostTest, FileHasNoPanelButAReason) {
  PrintDialogUser user;
  user.choosePrinter("Print to File");
  EXPECT_FALSE(user.hasPanel());
  EXPECT_FALSE(gtk_widget_get_sensitive(user.tabLabel()));
  EXPECT_TRUE(user.shows("not available when you print to a file"));
  EXPECT_TRUE(user.print());
}

TEST_F(PrintDialogHostTest, HiddenPanelStaysHiddenWhereTheRulesSaySo) {
  g_setenv("PUBLISHING_SHOW_HIDDEN_PANELS", "0", TRUE);
  {
    PrintDialogUser user;
    EXPECT_EQ(user.tabLabel(), nullptr);
  }
  g_unsetenv("PUBLISHING_SHOW_HIDDEN_PANELS");
}

TEST_F(PrintDialogHostTest, JobCarriesWhatThePanelSaved) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("CmCheckBox");
  user.click("CmFrontAndBackCell");
  user.pick("CmMediaType", 4);
  user.click("PiCheckBox");
  user.type("5,8,12-14");
  user.pick("PiMediaType", 2);
  user.click("PiPrintOnFront");
  EXPECT_TRUE(
      user.shows("Front and back cover on Coated Paper, page 1 outside; pages 5, 8 and "
                 "12\u201314 on sheets of Recycled Paper."));
  ASSERT_TRUE(user.print()) << user.alerts.back().message;
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "On");
  EXPECT_EQ(user.setting("cups-VtCoverModeValue"), "1");
  EXPECT_EQ(user.setting("cups-VtCovermodeRadioButtonState"), "2");
  EXPECT_EQ(user.setting("cups-VtCmIndex"), "4");
  EXPECT_EQ(user.setting("cups-VtUnspecified"), "1");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Coated");
  EXPECT_EQ(user.setting("cups-VtPageinsertState"), "On");
  EXPECT_EQ(user.setting("cups-VtPageinsertNums"), "5,8,12,13,14,");
  EXPECT_EQ(user.setting("cups-VtPageinsertValue"), "1");
  EXPECT_EQ(user.setting("cups-PageMediaType"), "Recycled");
  EXPECT_THAT(user.alerts, IsEmpty());
}

TEST_F(PrintDialogHostTest, JobOfAPanelThatIsOffSaysSo) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "Off");
  EXPECT_EQ(user.setting("cups-VtPageinsertState"), "Off");
  EXPECT_EQ(user.setting("cups-VtCmIndex"), "(none)");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
}

TEST_F(PrintDialogHostTest, NothingIsMadeForAUserWhoNeverLooks) {
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  EXPECT_FALSE(user.hasPanel());
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "Off");
}

TEST_F(PrintDialogHostTest, StoredFeaturesCountForAUserWhoNeverLooks) {
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 3);
    ASSERT_TRUE(user.print());
  }
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Thick");
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "On");
}

TEST_F(PrintDialogHostTest, MediumPickedInTheDialogsOwnTabsCountsForAUserWhoNeverLooks) {
  PrintDialogUser user;
  user.choosePrinterOnly("Office");
  user.setDialogOption("cups-CoverMediaType", "Leather");
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "On");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Leather");
}

TEST_F(PrintDialogHostTest, BadPageListKeepsTheDialogOpen) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("PiCheckBox");
  user.type("1");
  user.openTab("General");
  bool modal = false;
  const GtkWindow* parent = nullptr;
  user.watch.onShown = [&](GtkDialog* alert) {
    modal = gtk_window_get_modal(GTK_WINDOW(alert)) != 0;
    parent = gtk_window_get_transient_for(GTK_WINDOW(alert));
  };
  EXPECT_FALSE(user.print());
  ASSERT_EQ(user.alerts.size(), 1U);
  EXPECT_THAT(user.alerts[0].message, HasSubstr("between 2 and 511"));
  EXPECT_TRUE(modal);
  EXPECT_EQ(parent, GTK_WINDOW(user.dialog()));
  EXPECT_EQ(user.frontTab(), "Publishing");
  EXPECT_TRUE(user.isTicked("PiCheckBox"));
  EXPECT_EQ(user.text("PiPageNum"), "1");
  EXPECT_EQ(user.setting("cups-VtPageinsertState"), "(none)");

  user.type("2");
  EXPECT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtPageinsertNums"), "2,");
}

TEST_F(PrintDialogHostTest, SettingsAreKeptForEachQueue) {
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 3);
    ASSERT_TRUE(user.print());
  }
  PrintDialogUser user;
  user.choosePrinter("Studio");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  user.choosePrinter("Office");
  EXPECT_TRUE(user.isTicked("CmCheckBox"));
  EXPECT_TRUE(user.isTicked("CmFrontOutside"));
  EXPECT_EQ(user.picked("CmMediaType"), 3);
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Thick");
}

TEST_F(PrintDialogHostTest, CancelledDialogStoresNothing) {
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    gtk_dialog_response(GTK_DIALOG(user.dialog()), GTK_RESPONSE_CANCEL);
  }
  PrintDialogUser user;
  user.choosePrinter("Office");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
}

TEST_F(PrintDialogHostTest, PickedMediumLastsWhenAnotherFeatureIsSwitched) {
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 3);
    ASSERT_TRUE(user.print());
  }
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.pick("CmMediaType", 5);
  user.click("PiCheckBox");
  EXPECT_EQ(user.picked("CmMediaType"), 5);
}

TEST_F(PrintDialogHostTest, TwoSidedInTheDialogTakesEffectAtOnce) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("CmCheckBox");
  user.click("CmFrontAndBackCell");
  user.click("PiCheckBox");
  EXPECT_FALSE(user.isSensitive("CmFrontInside"));
  EXPECT_THAT(user.tooltip("CmFrontInside"), HasSubstr("two-sided"));
  EXPECT_THAT(user.tooltip("PiPrintOnBack"), HasSubstr("two-sided"));
  user.setDialogOption("gtk-duplex", "DuplexNoTumble");
  for (const char* side : {"CmFrontInside", "CmBackOutside", "PiPrintOnBack"}) {
    EXPECT_TRUE(user.isSensitive(side)) << side;
    EXPECT_EQ(user.tooltip(side), "") << side;
    user.click(side);
  }
  user.setDialogOption("gtk-duplex", "None");
  for (const char* side : {"CmFrontInside", "CmBackOutside", "PiPrintOnBack"}) {
    EXPECT_FALSE(user.isSensitive(side)) << side;
    EXPECT_FALSE(user.isTicked(side)) << side;
  }
}

TEST_F(PrintDialogHostTest, ReverseOrderAndSeveralPagesASideSwitchTheFeaturesOff) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("CmCheckBox");
  user.setReverse(true);
  EXPECT_FALSE(user.isSensitive("CmCheckBox"));
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_THAT(user.tooltip("PiCheckBox"), HasSubstr("Reverse"));
  user.setReverse(false);
  EXPECT_TRUE(user.isSensitive("CmCheckBox"));
  EXPECT_EQ(user.tooltip("CmCheckBox"), "");
  user.setDialogOption("gtk-n-up", "4");
  EXPECT_FALSE(user.isSensitive("PiCheckBox"));
  EXPECT_THAT(user.tooltip("CmCheckBox"), HasSubstr("Pages per side"));
}

TEST_F(PrintDialogHostTest, PaperSourceAndMediumDecideWhichTraysAreOffered) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("CmCheckBox");
  EXPECT_THAT(user.tooltip("CmMediaType"), Not(HasSubstr("Tray 2")));
  user.setDialogOption("gtk-paper-type", "Transparency");
  EXPECT_THAT(user.tooltip("CmMediaType"), HasSubstr("Tray 2: conflicts with Media Type"));
  user.setDialogOption("gtk-paper-type", "Plain");
  EXPECT_THAT(user.tooltip("CmMediaType"), Not(HasSubstr("Tray 2")));
}

TEST_F(PrintDialogHostTest, MediumPickedInThePanelShowsInTheDialogsOwnTabs) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("CmCheckBox");
  user.pick("CmMediaType", 7);
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "Tray2");
  user.click("CmCheckBox");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
}

TEST_F(PrintDialogHostTest, MediumPickedInTheDialogsOwnTabsShowsInThePanel) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.setDialogOption("cups-PageMediaType", "Recycled");
  EXPECT_TRUE(user.isTicked("PiCheckBox"));
  EXPECT_EQ(user.picked("PiMediaType"), 2);
  user.openTab("Publishing");
  user.pick("PiMediaType", 3);
  EXPECT_EQ(user.setting("cups-PageMediaType"), "Thick");
  user.setDialogOption("cups-PageMediaType", "PrnDef");
  EXPECT_EQ(user.picked("PiMediaType"), 0);
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
}

TEST_F(PrintDialogHostTest, MediumForAFeatureThatIsImpossibleIsTakenBack) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.click("CmCheckBox");
  user.setReverse(true);
  user.setDialogOption("cups-CoverMediaType", "Coated");
  EXPECT_FALSE(user.isTicked("CmCheckBox"));
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
}

TEST_F(PrintDialogHostTest, ConflictNamesBothSidesAndOffersToGoBack) {
  PrintDialogUser user;
  user.choosePrinter("Office");
  user.openTab("Publishing");
  user.click("PiCheckBox");
  user.type("3");
  user.pick("PiMediaType", 3);
  user.setDialogOption("gtk-paper-source", "Tray3");
  EXPECT_FALSE(user.print());
  ASSERT_EQ(user.alerts.size(), 1U);
  EXPECT_THAT(user.alerts[0].message, HasSubstr("Thick"));
  EXPECT_THAT(user.alerts[0].message, HasSubstr("Tray 3"));
  EXPECT_EQ(user.picked("PiMediaType"), 3);

  user.watch.answerNext(GTK_RESPONSE_YES);
  EXPECT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-PageMediaType"), "Thick");
}

TEST_F(PrintDialogHostTest, SettingsOfTheProgramsLastJobAgreeWithThePanel) {
  GObjectPtr<GtkPrintSettings> last;
  {
    PrintDialogUser user;
    user.choosePrinter("Office");
    user.click("CmCheckBox");
    user.pick("CmMediaType", 4);
    ASSERT_TRUE(user.print());
    last = shareGObject(user.lastJob());
  }
  PrintDialogUser user(last.get());
  user.choosePrinter("Office");
  EXPECT_EQ(user.picked("CmMediaType"), 4);
  user.click("CmCheckBox");
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.setting("cups-VtCoverModeState"), "Off");
  EXPECT_EQ(user.setting("cups-VtCmIndex"), "(none)");
  EXPECT_EQ(user.setting("cups-CoverMediaType"), "PrnDef");
}

TEST_F(PrintDialogHostTest, DialogsDoNotDisturbEachOther) {
  PrintDialogUser first;
  first.choosePrinter("Office");
  PrintDialogUser second;
  second.choosePrinter("Studio");
  first.click("CmCheckBox");
  first.pick("CmMediaType", 4);
  EXPECT_FALSE(second.isTicked("CmCheckBox"));
  EXPECT_EQ(first.setting("cups-CoverMediaType"), "Coated");
  EXPECT_EQ(second.setting("cups-CoverMediaType"), "PrnDef");
}

TEST_F(PrintDialogHostTest, DialogCanGoWhileThePrinterIsAsked) {
  {
    PrintDialogUser user;
    // The answer takes at least one more turn of the main loop.
    PrintDialogUser::waitUntil("a printer", [&] {
      auto* dialog = GTK_PRINT_UNIX_DIALOG(user.dialog());
      return gtk_print_unix_dialog_get_selected_printer(dialog) != nullptr;
    });
  }
  PrintDialogUser user;
  user.choosePrinter("Office");
  EXPECT_TRUE(user.hasPanel());
}

}  // namespace
}  // namespace publishing
