// SPDX-License-Identifier: Apache-2.0
// What real editing adds to the promises of every shell: selections, pastes, texts that the widget
// cannot hold.
#include "shells/gtk/GtkTextField.h"

#include <gtest/gtest.h>

#include "Publishing/CustomTextFieldFormatter.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class GtkTextFieldTest : public testing::Test {
 protected:
  GtkTextFieldTest() {
    auto formatter = std::make_shared<CustomTextFieldFormatter>();
    formatter->allowsonlyNumericsAndSpecialCharacters(true);
    field.setFormatter(formatter);
    gtk_container_add(GTK_CONTAINER(window.get()), field.widget());
    gtk_widget_show_all(window.get());
    GtkStage::settle();
  }
  ~GtkTextFieldTest() override { gtk_widget_destroy(window.get()); }

  void select(int start, int end) {
    gtk_editable_select_region(GTK_EDITABLE(field.widget()), start, end);
  }

  // What one paste of the text over the selection makes of the field.
  std::string paste(const char* text) {
    gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), text, -1);
    gtk_editable_paste_clipboard(GTK_EDITABLE(field.widget()));
    GtkStage::settle();
    return field.stringValue().value();
  }

  GObjectPtr<GtkWidget> window = shareGObject(gtk_window_new(GTK_WINDOW_TOPLEVEL));
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

TEST_F(GtkTextFieldTest, RefusedCharactersAreSeenToBeRefused) {
  EXPECT_EQ(field.refusal(), "");
  for (const char* typed : {" ", "–", "x"}) {
    g_signal_emit_by_name(field.widget(), "insert-at-cursor", typed);
    GtkStage::settle();
    EXPECT_NE(field.refusal().find("“" + std::string(typed) + "” was not accepted"),
              std::string::npos)
        << field.refusal();
  }
  EXPECT_NE(paste("5 8").size(), 3U);
  EXPECT_NE(field.refusal().find("“5 8”"), std::string::npos);
  // It lasts while the user types on.
  g_signal_emit_by_name(field.widget(), "insert-at-cursor", "5");
  GtkStage::settle();
  EXPECT_EQ(field.stringValue(), "5");
  EXPECT_NE(field.refusal(), "");
}

TEST_F(GtkTextFieldTest, RefusalOfAFieldThatIsNotShownIsNotShown) {
  gtk_widget_hide(field.widget());
  g_signal_emit_by_name(field.widget(), "insert-at-cursor", " ");
  EXPECT_EQ(field.refusal(), "");
}

TEST_F(GtkTextFieldTest, EachDeletionStandsByItself) {
  field.setStringValue("3,5,9");
  select(0, -1);
  g_signal_emit_by_name(field.widget(), "backspace");
  GtkStage::settle();
  g_signal_emit_by_name(field.widget(), "insert-at-cursor", "x");
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
  g_signal_emit_by_name(field.widget(), "backspace");
  EXPECT_EQ(field.stringValue(), "3");
}

}  // namespace
}  // namespace publishing
