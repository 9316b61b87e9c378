// SPDX-License-Identifier: Apache-2.0
// Qt's own print dialog against a real print server, up to the options that its printer sends with
// a job.
#include "shells/qt/dialog/QtPrintDialogHost.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QTabWidget>
#include <QTimer>
#include <filesystem>

#include <cups/ppd.h>
#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingFeatures.h"
#include "tests/shells/qt/QtPrintDialogUser.h"

namespace publishing {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using User = QtPrintDialogUser;
using Options = User::Options;

class QtPrintDialogHostTest : public testing::Test {
 protected:
  // No test finds what another one has stored.
  QtPrintDialogHostTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }
};

TEST_F(QtPrintDialogHostTest, JobCarriesWhatThePanelSavedAfterARefusal) {
  User user;
  user.choosePrinter("Office");
  ASSERT_TRUE(user.button(outlet::CmCheckBox));
  user.button(outlet::CmCheckBox)->click();
  user.button("CmFrontAndBackCell")->click();
  pickItem(user.menu(outlet::CmMediaType), 4);
  user.button(outlet::PiCheckBox)->click();
  pickItem(user.menu(outlet::PiMediaType), 2);
  user.button(outlet::PiPrintOnFront)->click();
  user.type("1");
  user.openTab("Copies");
  EXPECT_FALSE(user.print());
  ASSERT_EQ(user.alerts.size(), 1U);
  EXPECT_THAT(user.alerts[0], HasSubstr("between 2 and 511"));
  EXPECT_TRUE(user.button(outlet::PiCheckBox)->isVisible()) << "the page field is not in front";
  EXPECT_TRUE(user.dialog->isVisible());

  user.type("5,8,12-14");
  EXPECT_TRUE(user.print());
  const Options expected = {{"CoverMediaType", "Coated"},
                            {"PageMediaType", "Recycled"},
                            {"VtCmIndex", "4"},
                            {"VtCoverModeState", "On"},
                            {"VtCoverModeValue", "1"},
                            {"VtCovermodeRadioButtonState", "2"},
                            {"VtPageinsertNums", "5,8,12,13,14,"},
                            {"VtPageinsertState", "On"},
                            {"VtPageinsertValue", "1"},
                            {"VtPiIndex", "2"},
                            {"VtUnspecified", "1"}};
  Options given = user.options();
  for (const auto& [name, value] : expected)
    EXPECT_EQ(given[name], value) << name;

  User next;
  next.choosePrinter("Studio");
  EXPECT_FALSE(next.isTicked(outlet::CmCheckBox));
  next.choosePrinter("Office");
  EXPECT_TRUE(next.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(next.menu(outlet::CmMediaType)->currentIndex(), 4);
  EXPECT_FALSE(next.isTicked(outlet::CmFrontInside));
}

TEST_F(QtPrintDialogHostTest, JobIsNotChangedByADialogThatIsCancelledOrPrintsToAFile) {
  User user;
  user.choosePrinter("Office");
  user.button(outlet::CmCheckBox)->click();
  user.type("1");
  user.press(QDialogButtonBox::RejectRole);
  EXPECT_THAT(user.options(), IsEmpty());
  user.dialog->show();
  user.chooseBare("Print to File");
  EXPECT_EQ(user.button(outlet::CmCheckBox), nullptr);
  user.find<QLineEdit>("filename")->setText(QDir::tempPath() + "/publishing-qt-test.pdf");
  EXPECT_TRUE(user.print());
  EXPECT_THAT(user.options(), IsEmpty());
  EXPECT_THAT(user.alerts, IsEmpty());
}

TEST_F(QtPrintDialogHostTest, PanelFollowsTheDialogsOwnTabs) {
  User user;
  user.choosePrinter("Office");
  user.button(outlet::CmCheckBox)->click();
  EXPECT_FALSE(user.button(outlet::CmFrontInside)->isEnabled());
  EXPECT_THAT(user.button(outlet::CmFrontInside)->toolTip().toStdString(),
              HasSubstr("two-sided printing"));
  user.button("duplexLong")->click();
  User::settle();
  EXPECT_TRUE(user.button(outlet::CmFrontInside)->isEnabled());
  user.button("reverse")->click();
  User::settle();
  EXPECT_FALSE(user.button(outlet::CmCheckBox)->isEnabled());
  EXPECT_FALSE(user.isTicked(outlet::CmCheckBox));
}

TEST_F(QtPrintDialogHostTest, ExplanationsCanBeRead) {
  User user;
  user.choosePrinter("Office");
  const QImage label = user.find<QLabel>("CmExplanation")->grab().toImage();
  int dark = 0;
  for (int y = 0; y < label.height(); ++y)
    for (int x = 0; x < label.width(); ++x)
      dark += qGray(label.pixel(x, y)) < 180 ? 1 : 0;
  EXPECT_GT(dark, 300);
}

// Does something in the window "Properties", which is modal, and leaves it with OK.
void inProperties(User& user, const std::function<void(const QWidget& properties)>& act) {
  QTimer::singleShot(100, &*user.dialog, [&] {
    QWidget* window = QApplication::activeModalWidget();
    act(*window);
    qobject_cast<QDialog*>(window)->accept();
  });
  user.button("properties")->click();
  User::settle();
}

QComboBox* menuOf(const QWidget& properties, const char* option) {
  for (auto* menu : properties.findChildren<QComboBox*>()) {
    const QVariant value = menu->property("_q_ppd_option");
    if (!value.isValid()) continue;
    const auto* known = *static_cast<const ppd_option_t* const*>(value.constData());
    if (std::string(known->keyword) == option) return menu;
  }
  ADD_FAILURE() << "no menu for " << option;
  return nullptr;
}

std::string textOf(const QComboBox* menu) {
  return menu->currentText().toStdString();
}

TEST_F(QtPrintDialogHostTest, MediaInPropertiesAndInThePanelAgree) {
  User user;
  user.choosePrinter("Office");
  user.button(outlet::PiCheckBox)->click();
  pickItem(user.menu(outlet::PiMediaType), 2);
  inProperties(user, [&](const QWidget& properties) {
    EXPECT_EQ(textOf(menuOf(properties, "PageMediaType")), "Recycled Paper");
    EXPECT_EQ(textOf(menuOf(properties, "CoverMediaType")), "Printer Default");
  });
  EXPECT_FALSE(user.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(user.menu(outlet::PiMediaType)->currentIndex(), 2);
  inProperties(user, [&](const QWidget& properties) {
    menuOf(properties, "CoverMediaType")->setCurrentText("Coated Paper");
    properties.findChild<QComboBox*>("pagesPerSheetCombo")->setCurrentIndex(0);
  });
  EXPECT_TRUE(user.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(textOf(user.menu(outlet::CmMediaType)), "Coated Paper");
  inProperties(user, [&](const QWidget& properties) {
    properties.findChild<QComboBox*>("pagesPerSheetCombo")->setCurrentIndex(2);
  });
  EXPECT_FALSE(user.button(outlet::PiCheckBox)->isEnabled());
}

TEST_F(QtPrintDialogHostTest, ConflictsAreAskedAbout) {
  User user;
  user.choosePrinter("Office");
  user.button(outlet::PiCheckBox)->click();
  user.type("3");
  pickItem(user.menu(outlet::PiMediaType), 3);
  inProperties(user, [&](const QWidget& properties) {
    menuOf(properties, "InputSlot")->setCurrentText("Tray 3");
    user.watch.answerNext(QMessageBox::NoRole);  // to Qt's own question
  });
  user.alerts.clear();
  EXPECT_FALSE(user.print());  // goes back, which is the default
  ASSERT_EQ(user.alerts.size(), 1U);
  EXPECT_THAT(user.alerts[0], HasSubstr("Tray 3"));
  EXPECT_THAT(user.alerts[0], HasSubstr("Thick"));
  user.watch.answerNext(QMessageBox::AcceptRole);
  EXPECT_TRUE(user.print());
  EXPECT_EQ(user.options()["PageMediaType"], "Thick");
}

TEST_F(QtPrintDialogHostTest, DialogCanBeDestroyedDuringAnAlertOrWhileThePrinterIsAsked) {
  {
    User user;
    user.choosePrinter("Office");
    user.button(outlet::PiCheckBox)->click();
    user.type("1");
    qApp->removeEventFilter(&user.watch);
    QTimer::singleShot(100, [&] {
      EXPECT_NE(QApplication::activeModalWidget(), nullptr);
      user.dialog.reset();
    });
    user.press(QDialogButtonBox::AcceptRole);
    EXPECT_EQ(user.dialog, nullptr);
  }
  { const User user; }
  User::settle();
}

TEST_F(QtPrintDialogHostTest, DialogsDoNotDisturbEachOther) {
  User first;
  first.choosePrinter("Office");
  User second;
  second.choosePrinter("Studio");
  first.button(outlet::CmCheckBox)->click();
  EXPECT_FALSE(second.isTicked(outlet::CmCheckBox));
  EXPECT_TRUE(second.print());
  EXPECT_EQ(second.options()["VtCoverModeState"], "Off");
  EXPECT_TRUE(first.print());
  EXPECT_EQ(first.options()["VtCoverModeState"], "On");
}

TEST_F(QtPrintDialogHostTest, RulesAndUnknownDialogsLeaveItOut) {
  g_setenv("PUBLISHING_EXTENSION", "0", TRUE);
  EXPECT_FALSE(User().isAttached);
  g_unsetenv("PUBLISHING_EXTENSION");
  QPrinter printer;
  QPrintDialog dialog(&printer);
  dialog.findChild<QTabWidget*>("tabs")->setObjectName("others");
  EXPECT_FALSE(QtPrintDialogHost::attach(&dialog));
  EXPECT_EQ(QtPrintDialogHost::of(&dialog), nullptr);
}

}  // namespace
}  // namespace publishing
