// SPDX-License-Identifier: Apache-2.0
// What real editing adds to the promises of every shell: selections, pastes, texts that the widget
// cannot hold.
#include "shells/qt/QtTextField.h"

#include <QApplication>
#include <QClipboard>

#include <gtest/gtest.h>

#include "Publishing/CustomTextFieldFormatter.h"
#include "tests/shells/CommasForBlanks.h"
#include "tests/support/QtStage.h"

namespace publishing {
namespace {

class QtTextFieldTest : public testing::Test {
 protected:
  QtTextFieldTest() {
    auto formatter = std::make_shared<CustomTextFieldFormatter>();
    formatter->allowsonlyNumericsAndSpecialCharacters(true);
    field.setFormatter(formatter);
    line.show();
  }

  // What one paste of the text over the selection makes of the field.
  std::string paste(const char* text) {
    QApplication::clipboard()->setText(text);
    line.paste();
    return field.stringValue().value();
  }

  QLineEdit line;
  QtTextField field{&line};
};

TEST_F(QtTextFieldTest, PasteOverASelectionIsOneEdit) {
  field.setStringValue("3,5,9");
  line.setSelection(2, 1);
  EXPECT_EQ(paste("6-8"), "3,6-8,9");
}

TEST_F(QtTextFieldTest, RefusedPasteKeepsTheSelectedText) {
  field.setStringValue("3,5,9");
  line.selectAll();
  EXPECT_EQ(paste("pages 3 to 5"), "3,5,9");
}

TEST_F(QtTextFieldTest, PasteWithOneBadCharacterIsRefusedAsAWhole) {
  field.setStringValue("3");
  EXPECT_EQ(paste(",5 "), "3");
  EXPECT_EQ(paste(",5"), "3,5");
}

TEST_F(QtTextFieldTest, RefusedKeystrokeLeavesTheCursorWhereItWas) {
  field.setStringValue("3,5,9");
  line.setCursorPosition(2);
  pressKey(&line, Qt::Key_X, "x");
  EXPECT_EQ(line.cursorPosition(), 2);
  pressKey(&line, Qt::Key_7, "7");
  EXPECT_EQ(field.stringValue(), "3,75,9");
}

TEST_F(QtTextFieldTest, CursorStaysBehindWhatTheFormatterRewrote) {
  field.setFormatter(std::make_shared<CommasForBlanks>());
  field.setStringValue("3,9");
  line.setCursorPosition(1);
  EXPECT_EQ(paste(" 5 7"), "3,5,7,9");
  EXPECT_EQ(line.cursorPosition(), 5);
}

TEST_F(QtTextFieldTest, TextFromCodeComesBackAsItWasGiven) {
  const std::string longText(100000, '7');
  for (const std::string& text : {std::string("3,\xff\xfe,5"), std::string("1\n2\r\t3"),
                                  std::string("a\0b", 3), longText, std::string()}) {
    field.setStringValue(text);
    EXPECT_EQ(field.stringValue(), text);
  }
}

TEST_F(QtTextFieldTest, TextFromCodeIsNotAskedAndCanBeMended) {
  field.setStringValue("pages 3");
  line.setSelection(0, 6);
  pressKey(&line, Qt::Key_Backspace);
  EXPECT_EQ(field.stringValue(), "3");
}

}  // namespace
}  // namespace publishing
