// SPDX-License-Identifier: Apache-2.0
// Presets, Reset and the picture in the tab of Qt's own print dialog.
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingFeatures.h"
#include "printing/presets/Presets.h"
#include "shells/qt/QtText.h"
#include "shells/qt/dialog/QtSheetsView.h"
#include "tests/shells/qt/QtPrintDialogUser.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using User = QtPrintDialogUser;

constexpr const char* kSaveAs = "Save as…";
constexpr const char* kDelete = "Delete";

std::vector<std::string> labelsIn(const QMenu& menu) {
  std::vector<std::string> labels;
  for (const QAction* item : menu.actions())
    if (!item->isSeparator()) labels.push_back(withoutMnemonic(item->text()).toStdString());
  return labels;
}

QAction* itemIn(const QMenu& menu, const char* label) {
  for (QAction* item : menu.actions())
    if (withoutMnemonic(item->text()) == label) return item;
  ADD_FAILURE() << "no item " << label;
  return nullptr;
}

class QtPrintDialogPresetsTest : public testing::Test {
 protected:
  QtPrintDialogPresetsTest() {
    std::filesystem::remove_all(std::string(g_get_user_config_dir()) + "/publishing");
  }

  // Covers on coated paper.
  static void makeCovers(User& user) {
    user.choosePrinter("Office");
    user.button(outlet::CmCheckBox)->click();
    pickItem(user.menu(outlet::CmMediaType), 4);
  }

  // Opens the menu and chooses an item, or one of its submenu; gives the menu's labels.
  static std::vector<std::string> choose(User& user, const char* label,
                                         const char* inSubmenu = nullptr) {
    QMenu* menu = user.find<QPushButton>("Presets")->menu();
    Q_EMIT menu->aboutToShow();
    const std::vector<std::string> labels = labelsIn(*menu);
    QAction* item = itemIn(*menu, label);
    if (inSubmenu != nullptr) item = itemIn(*item->menu(), inSubmenu);
    item->trigger();
    User::settle();
    return labels;
  }

  // Does something as soon as a question is open.
  static void whenAsked(User& user, const std::function<void(QDialog& question)>& act) {
    auto* timer = new QTimer(&*user.dialog);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
      auto* question = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (question == nullptr) return;
      timer->stop();
      act(*question);
    });
    timer->start(10);
  }

  // The next question for a name gets these, one after the other, each with the default button.
  static void answerWithNames(User& user, const std::vector<std::string>& names) {
    whenAsked(user, [names](QDialog& question) {
      for (const std::string& name : names) {
        question.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
        question.accept();
      }
    });
  }

  static std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const StoredPreset& stored : Presets().list().presets)
      names.push_back(stored.preset.name);
    return names;
  }

  static bool shows(const User& user, const char* words) {
    const auto labels = user.dialog->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [words](const QLabel* label) {
      return label->isVisible() && label->text().contains(QString::fromUtf8(words));
    });
  }
};

TEST_F(QtPrintDialogPresetsTest, MenuSavesUsesAndDeletes) {
  User user;
  makeCovers(user);
  answerWithNames(user, {"Annual & report"});
  EXPECT_THAT(choose(user, kSaveAs), ElementsAre("No presets yet", kSaveAs, kDelete));
  ASSERT_THAT(names(), ElementsAre("Annual & report"));

  user.button(outlet::CmCheckBox)->click();
  ASSERT_FALSE(user.isTicked(outlet::CmCheckBox));
  EXPECT_THAT(choose(user, "Annual & report"), ElementsAre("Annual & report", kSaveAs, kDelete));
  EXPECT_TRUE(user.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(user.menu(outlet::CmMediaType)->currentIndex(), 4);

  // Going back is the default.
  choose(user, kDelete, "Annual & report");
  EXPECT_THAT(names(), SizeIs(1));
  user.watch.answerNext(QMessageBox::AcceptRole);
  choose(user, kDelete, "Annual & report");
  EXPECT_THAT(names(), IsEmpty());
  ASSERT_TRUE(user.print());
  EXPECT_EQ(user.options()["VtCoverModeState"], "On");
  EXPECT_EQ(user.options()["CoverMediaType"], "Coated");
}

TEST_F(QtPrintDialogPresetsTest, OneThatIsThereIsReplacedOnlyIfTheUserWants) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  User user;
  makeCovers(user);
  answerWithNames(user, {" report "});
  choose(user, kSaveAs);
  ASSERT_THAT(user.alerts, SizeIs(1));
  EXPECT_THAT(user.alerts[0], HasSubstr("“report” already"));
  EXPECT_FALSE(Presets().find("Report").preset.hasCover());
}

TEST_F(QtPrintDialogPresetsTest, ABadNameIsAskedForAgain) {
  User user;
  makeCovers(user);
  answerWithNames(user, {"", std::string(101, 'x'), "Report"});
  choose(user, kSaveAs);
  EXPECT_THAT(names(), ElementsAre("Report"));
}

TEST_F(QtPrintDialogPresetsTest, DialogDestroyedAtTheQuestionIsSurvived) {
  for (const bool isNamed : {true, false}) {
    if (!isNamed) Presets().store({.name = "Report"}, Presets::Existing::Keep);
    User user;
    makeCovers(user);
    qApp->removeEventFilter(&user.watch);
    // Not within the call, which is the dialog's own.
    whenAsked(user, [&user](QDialog&) { QTimer::singleShot(0, [&user] { user.dialog.reset(); }); });
    isNamed ? choose(user, kSaveAs) : choose(user, kDelete, "Report");
    waitUntil("the end of the dialog", [&] { return user.dialog == nullptr; });
  }
  EXPECT_THAT(names(), ElementsAre("Report"));
}

TEST_F(QtPrintDialogPresetsTest, AMissingPaperIsSaidInTheTab) {
  Presets().store({.name = "Gold", .cover = "front", .coverMedium = {"Gold", "Gold Leaf"}},
                  Presets::Existing::Keep);
  User user;
  user.choosePrinter("Office");
  choose(user, "Gold");
  EXPECT_FALSE(user.isTicked(outlet::CmCheckBox));
  EXPECT_TRUE(shows(user, "Gold Leaf is not offered for covers"));
}

TEST_F(QtPrintDialogPresetsTest, WithoutItsTickNothingIsRememberedForThePrinter) {
  {
    User user;
    makeCovers(user);
    ASSERT_TRUE(user.button("Remember"));
    EXPECT_TRUE(user.button("Remember")->isChecked());
    user.button("Remember")->click();
    EXPECT_TRUE(user.print());
  }
  User user;
  user.choosePrinter("Office");
  EXPECT_FALSE(user.button(outlet::CmCheckBox)->isChecked());
  EXPECT_FALSE(user.button("Remember")->isChecked());
}

TEST_F(QtPrintDialogPresetsTest, ResetSwitchesOffAndForgetsAndCanBeUndone) {
  User user;
  makeCovers(user);
  auto* tabs = user.find<QTabWidget>("tabs");
  EXPECT_EQ(tabs->tabText(tabs->currentIndex()), "Publishing ✓");
  user.button("Reset")->click();
  EXPECT_FALSE(user.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(tabs->tabText(tabs->currentIndex()), "Publishing");
  EXPECT_EQ(withoutMnemonic(user.button("Reset")->text()), "Undo Reset");
  user.button("Reset")->click();
  EXPECT_TRUE(user.isTicked(outlet::CmCheckBox));
  EXPECT_EQ(user.menu(outlet::CmMediaType)->currentIndex(), 4);
  EXPECT_EQ(withoutMnemonic(user.button("Reset")->text()), "Reset");
}

std::string sentenceIn(const User& user) {
  const auto views = user.dialog->findChildren<QLabel*>();
  for (const QLabel* label : views)
    if (label->accessibleName() == "Picture of the sheets")
      return label->accessibleDescription().toStdString();
  return "";
}

TEST_F(QtPrintDialogPresetsTest, PictureFollowsThePanelAndTheOtherTabs) {
  User user;
  user.dialog->setMinMax(1, 24);
  user.choosePrinter("Office");
  EXPECT_EQ(sentenceIn(user), "No covers and no inserts. 24 sheets in all.");
  user.button(outlet::CmCheckBox)->click();
  EXPECT_THAT(sentenceIn(user), HasSubstr("24 sheets in all."));
  EXPECT_TRUE(shows(user, "24 sheets in all."));
  user.openTab("Copies");
  user.find<QSpinBox>("copies")->setValue(3);
  user.button("pagesRadioButton")->click();
  user.find<QLineEdit>("pagesLineEdit")->setText("1-4, 7");
  user.openTab("Publishing");
  EXPECT_THAT(sentenceIn(user), HasSubstr("15 sheets in all for 3 copies."));
  user.openTab("Copies");
  user.button("printRange")->click();
  user.find<QSpinBox>("from")->setValue(3);
  user.find<QSpinBox>("to")->setValue(4);
  user.find<QSpinBox>("copies")->setValue(1);
  user.openTab("Publishing");
  EXPECT_THAT(sentenceIn(user), HasSubstr("2 sheets in all."));
}

TEST_F(QtPrintDialogPresetsTest, WithoutTheNumberOfPagesThereIsNoTotal) {
  User user;
  user.choosePrinter("Office");
  user.button(outlet::CmCheckBox)->click();
  EXPECT_THAT(sentenceIn(user), Not(IsEmpty()));
  EXPECT_THAT(sentenceIn(user), Not(HasSubstr("in all")));
}

}  // namespace
}  // namespace publishing
