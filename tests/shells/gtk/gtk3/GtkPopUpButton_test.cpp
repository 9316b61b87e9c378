// SPDX-License-Identifier: Apache-2.0
// Menus of the length that printers with many media have.
#include <gtest/gtest.h>

#include "shells/gtk/GtkBundle.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

bool isList(GtkWidget* comboBox) {
  gboolean list = FALSE;
  gtk_widget_style_get(comboBox, "appears-as-list", &list, nullptr);
  return list != FALSE;
}

TEST(GtkPopUpButton, ShowsManyItemsAsAList) {
  ControlsOwner owner;
  GtkStage stage([](const auto&...) {});
  stage.bundle()->loadInterface("Publishing", owner);
  GtkPopUpButton& media = *stage.shown()->popUpButton("CmMediaType");
  media.addItemsWithTitles({"first", "second"});
  EXPECT_FALSE(isList(media.widget()));
  media.addItemsWithTitles(std::vector<std::string>(1000, "more"));
  EXPECT_TRUE(isList(media.widget()));
}

}  // namespace
}  // namespace publishing
