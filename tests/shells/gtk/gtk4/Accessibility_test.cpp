// SPDX-License-Identifier: Apache-2.0
// What a user of a screen reader meets.
#include <gtest/gtest.h>

#include "base/GlibHandles.h"
#include "shells/gtk/Toolkit.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

class PanelAccessibility : public testing::Test {
 protected:
  PanelAccessibility() { stage.bundle()->loadInterface("Publishing", owner); }

  GtkWidget* find(const std::string& id) {
    GtkWidget* found = nullptr;
    gestures::forEachWidget(stage.shown()->view()->widget(), [&](GtkWidget* widget) {
      if (toolkit::idOf(G_OBJECT(widget)) == id) found = widget;
    });
    return found;
  }

  // Empty when the control has that relation to the label.
  std::string faultOf(const char* control, GtkAccessibleRelation relation, const char* label) {
    const GlibText fault(gtk_test_accessible_check_relation(GTK_ACCESSIBLE(find(control)), relation,
                                                            find(label), nullptr));
    return fault != nullptr ? fault.get() : "";
  }

  ControlsOwner owner;
  GtkStage stage{[](const auto&...) {}};
};

TEST_F(PanelAccessibility, BoxesWithTheSameLabelHaveNamesOfTheirOwn) {
  const std::pair<const char*, const char*> names[] = {
      {"CmFrontOutside", "Outside of the front cover"},
      {"CmFrontInside", "Inside of the front cover"},
      {"CmBackOutside", "Outside of the back cover"},
      {"CmBackInside", "Inside of the back cover"},
      {"PiPrintOnFront", "Front of the inserted sheets"},
      {"PiPrintOnBack", "Back of the inserted sheets"}};
  for (const auto& [box, name] : names)
    EXPECT_EQ(gestures::faultOfAccessibleName(find(box), name), "") << box;
}

TEST_F(PanelAccessibility, LabelsAndExplanationsBelongToTheirControls) {
  const std::pair<const char*, const char*> labels[] = {{"CmFrontandBackMatrix", "CmMatrixLabel"},
                                                        {"CmMediaType", "CmMediaLabel"},
                                                        {"PiPageNum", "PiPageNumLabel"},
                                                        {"PiMediaType", "PiMediaLabel"}};
  for (const auto& [control, label] : labels)
    EXPECT_EQ(faultOf(control, GTK_ACCESSIBLE_RELATION_LABELLED_BY, label), "") << control;
  const std::pair<const char*, const char*> explanations[] = {{"CmCheckBox", "CmExplanation"},
                                                              {"PiCheckBox", "PiExplanation"},
                                                              {"PiPageNum", "PiPageNumHint"}};
  for (const auto& [control, label] : explanations)
    EXPECT_EQ(faultOf(control, GTK_ACCESSIBLE_RELATION_DESCRIBED_BY, label), "") << control;
}

}  // namespace
}  // namespace publishing
