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

TEST_F(PanelAccessibility, KindsOfCoversAreAllThatTheirGroupHas) {
  GtkWidget* matrix = stage.shown()->radioMatrix("CmFrontandBackMatrix")->widget();
  owner.matrix->setAllowsEmptySelection(true);
  const auto membersOf = [](GtkWidget* cell) {
    std::set<std::string> names;
    AtkRelationSet* relations = atk_object_ref_relation_set(gtk_widget_get_accessible(cell));
    AtkRelation* group = atk_relation_set_get_relation_by_type(relations, ATK_RELATION_MEMBER_OF);
    GPtrArray* members = atk_relation_get_target(group);
    for (guint index = 0; index < members->len; ++index) {
      const gchar* name = atk_object_get_name(ATK_OBJECT(g_ptr_array_index(members, index)));
      names.insert(name != nullptr ? name : "");
    }
    g_object_unref(relations);
    return names;
  };
  const std::set<std::string> kinds = {"Front and back covers", "Front cover only"};
  for (const std::int64_t column : {-1, 0, 1, -1}) {
    owner.matrix->selectCellAtRow(0, column);
    EXPECT_EQ(owner.matrix->selectedColumn(), column);
    gestures::forEachWidget(matrix, [&](GtkWidget* widget) {
      if (!GTK_IS_RADIO_BUTTON(widget)) return;
      EXPECT_EQ(membersOf(widget), kinds) << column;
    });
  }
}

TEST_F(PanelAccessibility, ReasonsAndFaultsAreDescriptions) {
  stage.shown();
  const auto descriptionOf = [](GtkWidget* widget) {
    const gchar* text = atk_object_get_description(gtk_widget_get_accessible(widget));
    return std::string(text != nullptr ? text : "");
  };
  GtkWidget* media = stage.shown()->popUpButton("CmMediaType")->widget();
  for (const char* name : {"CmCheckBox", "CmMediaType", "CmFrontandBackMatrix", "PiPageNum"})
    stage.bundle()->setTooltip(name, "Tray 2: conflicts");
  EXPECT_EQ(descriptionOf(media), "Tray 2: conflicts");
  EXPECT_EQ(descriptionOf(stage.shown()->checkBox("CmCheckBox")->widget()), "Tray 2: conflicts");
  EXPECT_EQ(descriptionOf(stage.shown()->textField("PiPageNum")->widget()), "Tray 2: conflicts");
  stage.bundle()->setTooltip("CmMediaType", "");
  EXPECT_EQ(descriptionOf(media), "");
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
