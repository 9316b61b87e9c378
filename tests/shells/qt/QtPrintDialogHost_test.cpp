// SPDX-License-Identifier: Apache-2.0
// Qt's own print dialog against a real print server, up to the options that its printer sends with
// a job.
#include "shells/qt/dialog/QtPrintDialogHost.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPrintEngine>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <map>

#include <cups/ppd.h>
#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingFeatures.h"
#include "tests/cups/PrivateCups.h"
#include "tests/support/QtStage.h"

namespace publishing {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::map<std::string, std::string>;

constexpr const char* kPPD = TEST_DATA "/zephrel-ps-9000.ppd";
constexpr auto kCupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

class Printers final : public testing::Environment {
 public:
  void SetUp() override {
    PrivateCups::instance().addQueue("Office", kPPD);
    PrivateCups::instance().addQueue("Studio", kPPD);
  }
};

const auto* const server = testing::AddGlobalTestEnvironment(new PrivateCups);
const auto* const printers = testing::AddGlobalTestEnvironment(new Printers);

void waitUntil(const char* what, const std::function<bool()>& condition) {
  QElapsedTimer time;
  for (time.start(); !condition(); QApplication::processEvents(QEventLoop::AllEvents, 10)) {
    ASSERT_LT(time.elapsed(), 10000) << what;
  }
}

// A program with a print dialog, and its user.
class User {
 public:
  User() {
    isAttached = QtPrintDialogHost::attach(&*dialog);
    dialog->show();
  }

  template <class Widget>
  Widget* find(const char* name) const {
    return dialog->findChild<Widget*>(name);
  }
  QAbstractButton* button(const char* name) const { return find<QAbstractButton>(name); }
  QComboBox* menu(const char* name) const { return find<QComboBox>(name); }

  // Chooses a printer that has the panel and looks at it.
  void choosePrinter(const char* name) {
    chooseBare(name);
    waitUntil("the panel", [this] { return QtPrintDialogHost::of(&*dialog)->hasPanel(); });
    openTab("Publishing");
  }
  void chooseBare(const char* name) const {
    auto* list = menu("printers");
    list->setCurrentIndex(list->findText(name, Qt::MatchStartsWith));
  }

  // Lets Qt do what is waiting, timers that are due among it.
  static void settle() {
    for (int turn = 0; turn < 5; ++turn)
      QApplication::processEvents();
  }

  // Unfolds the tabs first.
  void openTab(const char* label) {
    auto* tabs = find<QTabWidget>("tabs");
    if (!tabs->isVisible()) press(QDialogButtonBox::ResetRole);
    for (int tab = 0; tab < tabs->count(); ++tab) {
      if (tabs->tabText(tab) == label) tabs->setCurrentIndex(tab);
    }
  }

  void press(QDialogButtonBox::ButtonRole role) {
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    for (QAbstractButton* one : buttons->buttons()) {
      if (buttons->buttonRole(one) == role) return one->click();
    }
  }

  // Presses Print; whether the program was told.
  bool print() {
    bool isAccepted = false;
    QObject::connect(&*dialog, &QDialog::accepted, [&] { isAccepted = true; });
    const QPointer<QPrintDialog> alive = &*dialog;
    press(QDialogButtonBox::AcceptRole);
    settle();
    if (alive) QObject::disconnect(&*dialog, &QDialog::accepted, nullptr, nullptr);
    return isAccepted;
  }

  void type(const char* text) {
    auto* field = find<QLineEdit>(outlet::PiPageNum);
    field->selectAll();
    for (const char* key = text; *key != '\0'; ++key)
      pressKey(field, Qt::Key_unknown, QChar(QLatin1Char(*key)));
  }

  [[nodiscard]] bool isTicked(const char* box) const { return button(box)->isChecked(); }

  // The options that the printer sends with its jobs.
  [[nodiscard]] Options options() {
    const QStringList list = printer.printEngine()->property(kCupsOptions).toStringList();
    Options options;
    for (int place = 0; place + 1 < list.size(); place += 2)
      options[list.at(place).toStdString()] = list.at(place + 1).toStdString();
    return options;
  }

  bool isAttached = false;
  QPrinter printer;
  std::unique_ptr<QPrintDialog> dialog = std::make_unique<QPrintDialog>(&printer);
  std::vector<std::string> alerts;
  QtAlertWatch watch{[this](const std::string& title, const std::string& message,
                            const std::string&) { alerts.push_back(title + "|" + message); }};
};

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
