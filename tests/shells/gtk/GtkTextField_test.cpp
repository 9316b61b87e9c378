// SPDX-License-Identifier: Apache-2.0
// What real editing adds to the promises of every shell: selections, pastes, texts that the widget
// cannot hold.
#include "shells/gtk/GtkTextField.h"

#include <gtest/gtest.h>

#include "Publishing/CustomTextFieldFormatter.h"
#include "shells/gtk/Toolkit.h"
#include "tests/shells/CommasForBlanks.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class GtkTextFieldTest : public testing::Test {
 protected:
  GtkTextFieldTest() {
    auto formatter = std::make_shared<CustomTextFieldFormatter>();
    formatter->allowsonlyNumericsAndSpecialCharacters(true);
    field.setFormatter(formatter);
    gestures::setContent(GTK_WINDOW(window.get()), field.widget());
    toolkit::showWithChildren(window.get());
    GtkStage::settle();
  }
  ~GtkTextFieldTest() override { toolkit::destroyWindow(GTK_WINDOW(window.get())); }

  void select(int start, int end) {
    gtk_editable_select_region(GTK_EDITABLE(field.widget()), start, end);
  }

  [[nodiscard]] GtkEntry* entry() const { return GTK_ENTRY(field.widget()); }

  // What one paste of the text over the selection makes of the field.
  std::string paste(const char* text) {
    gestures::paste(entry(), text);
    GtkStage::settle();
    return field.stringValue().value();
  }

  GObjectPtr<GtkWidget> window = gestures::newWindow();
  GtkTextField field{GTK_ENTRY(gtk_entry_new())};
};

TEST_F(GtkTextFieldTest, PasteOverASelectionIsOneEdit) {
  field.setStringValue("3,5,9");
  select(2, 3);
  EXPECT_EQ(paste("6-8"), "3,6-8,9");
}

TEST_F(GtkTextFieldTest, RefusedPasteKeepsTheSelectedText) {
  field.setStringValue("3,5,9");
  select(0, -1);
  EXPECT_EQ(paste("pages 3 to 5"), "3,5,9");
}

TEST_F(GtkTextFieldTest, PasteWithOneBadCharacterIsRefusedAsAWhole) {
  field.setStringValue("3");
  select(1, 1);
  EXPECT_EQ(paste(",5 "), "3");
  EXPECT_EQ(paste(",5"), "3,5");
}

TEST_F(GtkTextFieldTest, CursorStaysBehindWhatTheFormatterRewrote) {
  field.setFormatter(std::make_shared<CommasForBlanks>());
  field.setStringValue("3,9");
  select(1, 1);
  EXPECT_EQ(paste(" 5 7"), "3,5,7,9");
  EXPECT_EQ(gtk_editable_get_position(GTK_EDITABLE(field.widget())), 5);
}

TEST_F(GtkTextFieldTest, EachDeletionStandsByItself) {
  field.setStringValue("3,5,9");
  select(0, -1);
  gestures::backspace(entry());
  GtkStage::settle();
  gestures::insert(entry(), "x");
  EXPECT_EQ(field.stringValue(), "");
}

TEST_F(GtkTextFieldTest, TextFromCodeComesBackAsItWasGiven) {
  const std::string longText(100000, '7');
  for (const std::string& text : {std::string("3,\xff\xfe,5"), std::string("1\n2\r\t3"),
                                  std::string("a\0b", 3), longText, std::string()}) {
    field.setStringValue(text);
    GtkStage::settle();
    EXPECT_EQ(field.stringValue(), text);
  }
}

TEST_F(GtkTextFieldTest, TextFromCodeIsNotAskedAndCanBeMended) {
  field.setStringValue("pages 3");
  select(0, 6);
  gestures::backspace(entry());
  EXPECT_EQ(field.stringValue(), "3");
}

}  // namespace
}  // namespace publishing
