// SPDX-License-Identifier: Apache-2.0
// Menus of the length that printers with many media have.
#include <gtest/gtest.h>

#include "shells/gtk/GtkBundle.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

TEST(GtkPopUpButton, ManyItemsBehaveLikeFew) {
  ControlsOwner owner;
  GtkStage stage([](const auto&...) {});
  stage.bundle()->loadInterface("Publishing", owner);
  GtkPopUpButton& media = *stage.shown()->popUpButton("CmMediaType");
  media.addItemsWithTitles({"first", "second"});
  media.selectItemAtIndex(1);
  media.addItemsWithTitles(std::vector<std::string>(1000, "more"));
  GtkStage::settle();
  EXPECT_EQ(media.numberOfItems(), 1002);
  EXPECT_EQ(media.indexOfSelectedItem(), 1);
  media.setItemEnabledAtIndex(1001, false);
  EXPECT_FALSE(media.isItemEnabledAtIndex(1001));
  EXPECT_TRUE(media.isItemEnabledAtIndex(1000));
  media.selectItemAtIndex(1001);
  EXPECT_EQ(media.titleOfSelectedItem(), "more");
  media.removeAllItems();
  EXPECT_EQ(media.indexOfSelectedItem(), -1);
}

}  // namespace
}  // namespace publishing
