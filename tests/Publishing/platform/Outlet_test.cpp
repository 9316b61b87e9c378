// SPDX-License-Identifier: Apache-2.0
#include "Publishing/platform/Outlet.h"

#include <gtest/gtest.h>

#include "shells/headless/HeadlessControls.h"

namespace publishing {
namespace {

TEST(Outlet, ReachesTheControlItIsConnectedTo) {
  HeadlessCheckBox box;
  Outlet<CheckBox> outlet;
  EXPECT_FALSE(outlet.isConnected());
  outlet.connect(box);
  EXPECT_TRUE(outlet.isConnected());
  outlet->setState(1);
  EXPECT_EQ(box.state(), 1);
  EXPECT_EQ(&*outlet, &box);
}

// Changing a control that is not there does nothing, and asking it gives zero, false or nothing.

TEST(Outlet, AbsentCheckBoxIsOff) {
  const Outlet<CheckBox> box;
  box->setState(1);
  box->setEnabled(true);
  EXPECT_EQ(box->state(), 0);
  EXPECT_FALSE(box->isEnabled());
}

TEST(Outlet, AbsentMatrixIsInItsFirstColumn) {
  const Outlet<RadioMatrix> matrix;
  matrix->setAllowsEmptySelection(true);
  matrix->setEnabled(true);
  matrix->selectCellAtRow(0, 1);
  EXPECT_EQ(matrix->selectedColumn(), 0);
  matrix->deselectAllCells();
  EXPECT_EQ(matrix->selectedColumn(), 0);
  EXPECT_FALSE(matrix->isEnabled());
}

TEST(Outlet, AbsentPopUpIsEmptyAtItsFirstItem) {
  const Outlet<PopUpButton> popUp;
  popUp->removeAllItems();
  popUp->addItemsWithTitles({"A", "B"});
  popUp->setAutoenablesItems(false);
  popUp->setItemEnabledAtIndex(0, true);
  popUp->selectItemAtIndex(1);
  popUp->setState(1);
  popUp->setEnabled(true);
  EXPECT_EQ(popUp->numberOfItems(), 0);
  EXPECT_EQ(popUp->itemTitleAtIndex(0), "");
  EXPECT_FALSE(popUp->isItemEnabledAtIndex(0));
  EXPECT_EQ(popUp->indexOfSelectedItem(), 0);
  EXPECT_EQ(popUp->titleOfSelectedItem(), std::nullopt);
  EXPECT_FALSE(popUp->isEnabled());
}

TEST(Outlet, AbsentTextFieldHasNoText) {
  const Outlet<TextField> field;
  field->setStringValue("5");
  field->setFormatter(nullptr);
  field->setEnabled(true);
  EXPECT_EQ(field->stringValue(), std::nullopt);
  EXPECT_FALSE(field->isEnabled());
}

TEST(Outlet, AbsentTabViewHasNoTabs) {
  const Outlet<TabView> tabs;
  tabs->removeTabViewItemAtIndex(0);
  EXPECT_EQ(tabs->numberOfTabViewItems(), 0);
  EXPECT_EQ(tabs->tabViewItemLabelAtIndex(0), "");
}

}  // namespace
}  // namespace publishing
