// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtFieldNote.h"

#include <QApplication>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace publishing {
namespace {

using Kind = FieldNote::Kind;

class QtFieldNoteTest : public testing::Test {
 protected:
  QtFieldNoteTest() {
    auto* layout = new QVBoxLayout(&window);
    for (QWidget* widget : std::initializer_list<QWidget*>{field, label, other})
      layout->addWidget(widget);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
  }

  [[nodiscard]] bool isMarked() const { return !field->actions().isEmpty(); }

  QWidget window;
  QLineEdit* field = new QLineEdit;
  QLabel* label = new QLabel("before");
  QLineEdit* other = new QLineEdit;
  QtFieldNote note{field, label};
};

TEST_F(QtFieldNoteTest, MarksFaultsAndRemarksInTheField) {
  label->setTextFormat(Qt::PlainText);
  for (const Kind kind : {Kind::Fault, Kind::Remark}) {
    note.show({kind, "100 %s <b>"});
    EXPECT_EQ(field->actions().size(), 1);
    EXPECT_EQ(label->text(), "100 %s <b>");
    EXPECT_EQ(label->foregroundRole(), QPalette::WindowText);
  }
  note.show({Kind::Hint, "type"});
  EXPECT_FALSE(isMarked());
  EXPECT_EQ(label->foregroundRole(), QPalette::PlaceholderText);
}

TEST_F(QtFieldNoteTest, UnfinishedTextIsAFaultOnceTheUserLeavesIt) {
  field->setFocus();
  note.show({Kind::Unfinished, "12-"});
  EXPECT_FALSE(isMarked());
  other->setFocus();
  EXPECT_TRUE(isMarked());
  field->setFocus();
  note.show({Kind::Unfinished, "12-1"});
  EXPECT_FALSE(isMarked());
}

}  // namespace
}  // namespace publishing
