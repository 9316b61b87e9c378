// SPDX-License-Identifier: Apache-2.0
// What a user of the keyboard meets.
#include <set>

#include <gtest/gtest.h>

#include "shells/gtk/Toolkit.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class PanelKeyboard : public testing::Test {
 protected:
  PanelKeyboard() { stage.bundle()->loadInterface("Publishing", owner); }

  // The mnemonic letter that the widget's own label shows; 0 for none.
  static gunichar mnemonicOf(GtkWidget* widget) {
    if (!GTK_IS_LABEL(widget)) return 0;
    const guint key = gtk_label_get_mnemonic_keyval(GTK_LABEL(widget));
    return key == GDK_KEY_VoidSymbol ? 0 : gdk_keyval_to_unicode(gdk_keyval_to_lower(key));
  }

  ControlsOwner owner;
  GtkStage stage{[](const auto&...) {}};
};

TEST_F(PanelKeyboard, MnemonicsDoNotClashInAnyTab) {
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  std::set<gunichar> outside = {'p', 'c', 'v', 'h'};  // the dialog's buttons
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    GtkWidget* tab =
        gtk_notebook_get_tab_label(notebook, gtk_notebook_get_nth_page(notebook, page));
    EXPECT_TRUE(outside.insert(mnemonicOf(tab)).second) << gtk_label_get_text(GTK_LABEL(tab));
  }
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    std::set<gunichar> taken = outside;
    gestures::forEachWidget(gtk_notebook_get_nth_page(notebook, page), [&](GtkWidget* widget) {
      const gunichar letter = mnemonicOf(widget);
      if (letter == 0) return;
      EXPECT_TRUE(taken.insert(letter).second) << gtk_label_get_text(GTK_LABEL(widget));
    });
  }
}

TEST_F(PanelKeyboard, TabKeyReachesEveryControlInReadingOrder) {
  const std::vector<std::string> expected = {"CmCheckBox",     "CmFrontCell",   "CmMediaType",
                                             "CmFrontOutside", "CmFrontInside", "CmBackOutside",
                                             "CmBackInside"};
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  owner.matrix->selectCellAtRow(0, 0);
  owner.popUps.at("CmMediaType")->addItemsWithTitles({"Plain Paper"});
  gtk_window_present(stage.window());
  while (!gtk_window_is_active(stage.window()))
    g_main_context_iteration(nullptr, TRUE);
  gtk_widget_grab_focus(GTK_WIDGET(notebook));
  std::vector<std::string> reached;
  for (std::size_t step = 0; step < expected.size(); ++step) {
    gestures::pressTab(stage.window());
    GtkWidget* focus = gtk_window_get_focus(stage.window());
    if (GtkWidget* comboBox = gtk_widget_get_ancestor(focus, GTK_TYPE_COMBO_BOX)) focus = comboBox;
    reached.push_back(toolkit::idOf(G_OBJECT(focus)));
  }
  EXPECT_EQ(reached, expected);
}

}  // namespace
}  // namespace publishing
