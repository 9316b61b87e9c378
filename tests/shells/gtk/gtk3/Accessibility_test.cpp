// SPDX-License-Identifier: Apache-2.0
// What a user of a screen reader meets.
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class PanelAccessibility : public testing::Test {
 protected:
  PanelAccessibility() { stage.bundle()->loadInterface("Publishing", owner); }

  ControlsOwner owner;
  GtkStage stage{[](const auto&...) {}};
};

TEST_F(PanelAccessibility, EveryControlHasANameOfItsOwnOnItsTab) {
  GtkNotebook* notebook = stage.shown()->tabView("tabView")->notebook();
  for (int page = 0; page < gtk_notebook_get_n_pages(notebook); ++page) {
    std::set<std::string> names;
    gestures::forEachWidget(gtk_notebook_get_nth_page(notebook, page), [&](GtkWidget* widget) {
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

}  // namespace
}  // namespace publishing
