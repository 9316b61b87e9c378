// SPDX-License-Identifier: Apache-2.0
// What Qt tells accessibility tools of the panel.
#include <QAccessible>
#include <set>

#include <gtest/gtest.h>

#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/QtStage.h"

namespace publishing {
namespace {

class QtAccessibility : public testing::Test {
 protected:
  QtAccessibility() { stage.bundle()->loadInterface("Publishing", owner); }

  static std::string text(QWidget* widget, QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(widget)->text(kind).toStdString();
  }
  static std::string description(QWidget* widget) { return text(widget, QAccessible::Description); }

  ControlsOwner owner;
  QtStage stage{[](const auto&...) {}};
};

TEST_F(QtAccessibility, EveryControlHasANameOfItsOwnOnItsTab) {
  QTabWidget* tabs = stage.shown()->tabView("tabView")->widget();
  for (int tab = 0; tab < tabs->count(); ++tab) {
    std::set<std::string> names;
    for (QWidget* widget : tabs->widget(tab)->findChildren<QWidget*>()) {
      const bool isControl = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                             qobject_cast<QComboBox*>(widget) != nullptr ||
                             qobject_cast<QLineEdit*>(widget) != nullptr;
      if (!isControl || widget->objectName().isEmpty()) continue;
      const std::string name = text(widget, QAccessible::Name);
      EXPECT_NE(name, "") << widget->objectName().toStdString();
      EXPECT_TRUE(names.insert(name).second) << name;
    }
    EXPECT_GE(names.size(), 3U);
  }
}

TEST_F(QtAccessibility, ReasonsAreDescriptionsAndExplanationsComeBack) {
  for (const char* name : {"CmCheckBox", "CmFrontInside"}) {
    QWidget* box = stage.shown()->checkBox(name)->widget();
    const std::string explained = description(box);
    stage.bundle()->setTooltip(name, "needs <b> & more\nso");
    EXPECT_EQ(description(box), "needs <b> & more\nso");
    stage.bundle()->setTooltip(name, "");
    EXPECT_EQ(description(box), explained);
  }
  QWidget* media = stage.shown()->popUpButton("CmMediaType")->widget();
  stage.bundle()->setTooltip("CmMediaType", "Tray 2: conflicts with Transparency");
  EXPECT_EQ(description(media), "Tray 2: conflicts with Transparency");
}

TEST_F(QtAccessibility, NotesAreTheFieldsDescription) {
  QWidget* field = stage.shown()->textField("PiPageNum")->widget();
  EXPECT_NE(description(field).find("Up to 10"), std::string::npos);
  stage.bundle()->setNote("PiPageNum", {FieldNote::Kind::Hint, "Pages 2 to 24."});
  EXPECT_EQ(description(field), "Pages 2 to 24.");
  stage.bundle()->setTooltip("PiPageNum", "Needs sheets.");
  stage.bundle()->setNote("PiPageNum", {FieldNote::Kind::Hint, "Pages 3 to 24."});
  EXPECT_EQ(description(field), "Needs sheets.");
  stage.bundle()->setTooltip("PiPageNum", "");
  EXPECT_EQ(description(field), "Pages 3 to 24.");
}

}  // namespace
}  // namespace publishing
