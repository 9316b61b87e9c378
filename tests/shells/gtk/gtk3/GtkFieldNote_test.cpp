// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkFieldNote.h"

#include <gtest/gtest.h>

#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

using Kind = FieldNote::Kind;

class GtkFieldNoteTest : public testing::Test {
 protected:
  GtkFieldNoteTest() {
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_lines(GTK_LABEL(label), 2);
    gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    for (GtkWidget* widget : {entry, label, other})
      gtk_container_add(GTK_CONTAINER(box), widget);
    gtk_container_add(GTK_CONTAINER(window.get()), box);
    gtk_widget_show_all(window.get());
    gtk_window_present(GTK_WINDOW(window.get()));
    while (gtk_window_is_active(GTK_WINDOW(window.get())) == 0)
      gtk_main_iteration();
    note = std::make_unique<GtkFieldNote>(GTK_ENTRY(entry), GTK_LABEL(label));
    GtkStage::settle();
  }
  ~GtkFieldNoteTest() override {
    note.reset();
    gtk_widget_destroy(window.get());
  }

  [[nodiscard]] bool isMarkedAsFault() const {
    const gchar* icon = gtk_entry_get_icon_name(GTK_ENTRY(entry), GTK_ENTRY_ICON_SECONDARY);
    const bool isRed = gtk_style_context_has_class(gtk_widget_get_style_context(entry), "error");
    EXPECT_EQ(isRed, icon != nullptr && std::string(icon) == "dialog-error-symbolic");
    return isRed;
  }

  GtkWidget* entry = gtk_entry_new();
  GtkWidget* label = gtk_label_new("before");
  GtkWidget* other = gtk_entry_new();
  GObjectPtr<GtkWidget> window = shareGObject(gtk_window_new(GTK_WINDOW_TOPLEVEL));
  std::unique_ptr<GtkFieldNote> note;
};

TEST_F(GtkFieldNoteTest, MarksFaultsInTheField) {
  EXPECT_FALSE(isMarkedAsFault());
  note->show({Kind::Fault, "100 %s <b>: wrong"});
  EXPECT_TRUE(isMarkedAsFault());
  EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(label)), "100 %s <b>: wrong");
  note->show({Kind::Remark, "look"});
  EXPECT_FALSE(isMarkedAsFault());
  note->show({Kind::Hint, "type"});
  EXPECT_FALSE(isMarkedAsFault());
}

TEST_F(GtkFieldNoteTest, MovesNothingWhateverItSays) {
  const int height = gtk_widget_get_allocated_height(label);
  const int fieldHeight = gtk_widget_get_allocated_height(entry);
  for (const std::string& text : {std::string(), std::string(1000, 'a') + " " + "b"}) {
    for (const Kind kind : {Kind::Hint, Kind::Fault, Kind::Remark}) {
      note->show({kind, text});
      GtkStage::settle();
      EXPECT_EQ(gtk_widget_get_allocated_height(label), height);
      EXPECT_EQ(gtk_widget_get_allocated_height(entry), fieldHeight);
    }
  }
}

TEST_F(GtkFieldNoteTest, UnfinishedTextIsAFaultOnceTheUserLeavesIt) {
  gtk_widget_grab_focus(entry);
  GtkStage::settle();
  note->show({Kind::Unfinished, "12-"});
  EXPECT_FALSE(isMarkedAsFault());
  gtk_widget_grab_focus(other);
  GtkStage::settle();
  EXPECT_TRUE(isMarkedAsFault());
  gtk_widget_grab_focus(entry);
  note->show({Kind::Unfinished, "12-1"});
  EXPECT_FALSE(isMarkedAsFault());
  note->show({Kind::Hint, "type"});
  gtk_widget_grab_focus(other);
  GtkStage::settle();
  EXPECT_FALSE(isMarkedAsFault());
}

}  // namespace
}  // namespace publishing
