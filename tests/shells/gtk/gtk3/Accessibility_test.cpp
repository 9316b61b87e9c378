// SPDX-License-Identifier: Apache-2.0
// What a user of the keyboard or of a screen reader meets.
#include <functional>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class PanelAccessibility : public testing::Test {
 protected:
  PanelAccessibility() { stage.bundle()->loadInterface("Publishing", owner); }

  static void forEachWidget(GtkWidget* widget, const std::function<void(GtkWidget*)>& visit) {
    visit(widget);
    if (!GTK_IS_CONTAINER(widget)) return;
    GList* children = gtk_container_get_children(GTK_CONTAINER(widget));
    for (const GList* child = children; child != nullptr; child = child->next)
      forEachWidget(GTK_WIDGET(child->data), visit);
    g_list_free(children);
  }

  // The mnemonic letter that the widget's own label shows; 0 for none.
  static gunichar mnemonicOf(GtkWidget* widget) {
    if (!GTK_IS_LABEL(widget)) return 0;
    const guint key = gtk_label_get_mnemonic_keyval(GTK_LABEL(widget));
    return key == GDK_KEY_VoidSymbol ? 0 : gdk_keyval_to_unicode(gdk_keyval_to_lower(key));
  }

  // One stroke of a key that needs no modifier.
  void press(guint key) {
    GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
    GdkWindow* window = gtk_widget_get_window(GTK_WIDGET(stage.window()));
    event->key.window = GDK_WINDOW(g_object_ref(window));
    event->key.keyval = key;
    GdkDisplay* display = gdk_window_get_display(window);
    GdkKeymapKey* codes = nullptr;
    gint count = 0;
    ASSERT_TRUE(gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), key, &codes,
                                                  &count));
    event->key.hardware_keycode = static_cast<guint16>(codes[0].keycode);
    g_free(codes);
    gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
    gtk_main_do_event(event);
    gdk_event_free(event);
    GtkStage::settle();
  }

  ControlsOwner owner;
  GtkStage stage{[](const auto&...) {}};
};

TEST_F(PanelAccessibility, EveryControlHasANameOfItsOwnOnItsTab) {
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    std::set<std::string> names;
    forEachWidget(gtk_notebook_get_nth_page(notebook, page), [&](GtkWidget* widget) {
      if (!GTK_IS_CHECK_BUTTON(widget) && !GTK_IS_ENTRY(widget) && !GTK_IS_COMBO_BOX(widget)) {
        return;
      }
      AtkObject* object = gtk_widget_get_accessible(widget);
      const gchar* name = atk_object_get_name(object);
      std::string spoken = name != nullptr ? name : "";
      AtkRelationSet* relations = atk_object_ref_relation_set(object);
      if (AtkRelation* label =
              atk_relation_set_get_relation_by_type(relations, ATK_RELATION_LABELLED_BY)) {
        auto* target =
            static_cast<AtkObject*>(g_ptr_array_index(atk_relation_get_target(label), 0));
        spoken = atk_object_get_name(target);
      }
      g_object_unref(relations);
      EXPECT_NE(spoken, "") << gtk_buildable_get_name(GTK_BUILDABLE(widget));
      EXPECT_TRUE(names.insert(spoken).second) << spoken;
    });
    EXPECT_GE(names.size(), 3u);
  }
}

TEST_F(PanelAccessibility, ExplanationsBelongToTheirControls) {
  const std::map<GtkWidget*, std::string> explained = {
      {stage.shown()->checkBox("CmCheckBox")->widget(), "their own paper"},
      {stage.shown()->checkBox("PiCheckBox")->widget(), "before each page"},
      {stage.shown()->textField("PiPageNum")->widget(), "Up to 10"}};
  for (const auto& [widget, words] : explained) {
    AtkRelationSet* relations = atk_object_ref_relation_set(gtk_widget_get_accessible(widget));
    AtkRelation* relation =
        atk_relation_set_get_relation_by_type(relations, ATK_RELATION_DESCRIBED_BY);
    ASSERT_NE(relation, nullptr) << words;
    auto* target = static_cast<AtkObject*>(g_ptr_array_index(atk_relation_get_target(relation), 0));
    EXPECT_NE(std::string(atk_object_get_name(target)).find(words), std::string::npos) << words;
    g_object_unref(relations);
  }
}

TEST_F(PanelAccessibility, MnemonicsDoNotClashInAnyTab) {
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  std::set<gunichar> outside = {'p', 'c', 'v', 'h'};  // the dialog's buttons
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    GtkWidget* tab =
        gtk_notebook_get_tab_label(notebook, gtk_notebook_get_nth_page(notebook, page));
    EXPECT_TRUE(outside.insert(mnemonicOf(tab)).second) << gtk_label_get_text(GTK_LABEL(tab));
  }
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    std::set<gunichar> taken = outside;
    forEachWidget(gtk_notebook_get_nth_page(notebook, page), [&](GtkWidget* widget) {
      const gunichar letter = mnemonicOf(widget);
      if (letter == 0) return;
      EXPECT_TRUE(taken.insert(letter).second) << gtk_label_get_text(GTK_LABEL(widget));
    });
  }
}

TEST_F(PanelAccessibility, TabKeyReachesEveryControlInReadingOrder) {
  const std::vector<std::string> expected = {"CmCheckBox",     "CmFrontCell",   "CmMediaType",
                                             "CmFrontOutside", "CmFrontInside", "CmBackOutside",
                                             "CmBackInside"};
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  owner.matrix->selectCellAtRow(0, 0);
  owner.popUps.at("CmMediaType")->addItemsWithTitles({"Plain Paper"});
  gtk_window_present(stage.window());
  while (!gtk_window_is_active(stage.window()))
    gtk_main_iteration();
  gtk_widget_grab_focus(GTK_WIDGET(notebook));
  std::vector<std::string> reached;
  for (std::size_t step = 0; step < expected.size(); ++step) {
    press(GDK_KEY_Tab);
    GtkWidget* focus = gtk_window_get_focus(stage.window());
    if (GtkWidget* comboBox = gtk_widget_get_ancestor(focus, GTK_TYPE_COMBO_BOX)) focus = comboBox;
    reached.emplace_back(gtk_buildable_get_name(GTK_BUILDABLE(focus)));
  }
  EXPECT_EQ(reached, expected);
}

}  // namespace
}  // namespace publishing
