// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/Conformance.h"

namespace publishing {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_P(ShellConformance, PopUpKeepsOrderAndEqualTitles) {
  load();
  PopUpButton& media = popUp("CmMediaType");
  media.addItemsWithTitles({"Tray 2", "Plain", "Tray 2"});
  media.addItemsWithTitles({"Größe “A”", "a_b & <i>c</i>", ""});
  EXPECT_THAT(itemTitles(media),
              ElementsAre("Tray 2", "Plain", "Tray 2", "Größe “A”", "a_b & <i>c</i>", ""));
  media.selectItemAtIndex(2);
  EXPECT_EQ(media.indexOfSelectedItem(), 2);
  EXPECT_EQ(media.titleOfSelectedItem(), "Tray 2");
}

TEST_P(ShellConformance, PopUpHasALineThatIsNoItem) {
  load();
  PopUpButton& media = popUp("PiMediaType");
  media.addItemsWithTitles({"A", "", "C", "D"});
  media.selectItemAtIndex(2);
  for (const std::int64_t line : {2, 1, 3, 4, 0, 1}) {
    bundle().separateItem("PiMediaType", line);
    EXPECT_THAT(itemTitles(media), ElementsAre("A", "", "C", "D")) << line;
    EXPECT_EQ(media.indexOfSelectedItem(), 2) << line;
  }
  media.setItemEnabledAtIndex(3, false);
  for (std::int64_t index = 0; index < 4; ++index) {
    EXPECT_EQ(media.isItemEnabledAtIndex(index), index != 3) << index;
    media.selectItemAtIndex(index);
    EXPECT_EQ(media.indexOfSelectedItem(), index);
    EXPECT_EQ(media.titleOfSelectedItem(), media.itemTitleAtIndex(index));
  }
  for (const std::int64_t index : {0, 2, 1}) {
    user().choose("PiMediaType", index);
    EXPECT_EQ(media.indexOfSelectedItem(), index);
  }
  user().choose("PiMediaType", 3);
  EXPECT_EQ(media.indexOfSelectedItem(), 1) << "a disabled item";
  media.removeAllItems();
  media.addItemsWithTitles({"E", "F"});
  media.selectItemAtIndex(1);
  EXPECT_EQ(media.titleOfSelectedItem(), "F");
  bundle().separateItem("Unknown", 1);
}

TEST_P(ShellConformance, PopUpIsEmptied) {
  load();
  PopUpButton& media = popUp("CmMediaType");
  media.addItemsWithTitles({"A", "B"});
  media.selectItemAtIndex(1);
  media.setItemEnabledAtIndex(0, false);
  media.removeAllItems();
  EXPECT_EQ(media.numberOfItems(), 0);
  EXPECT_EQ(media.indexOfSelectedItem(), -1);
  EXPECT_EQ(media.titleOfSelectedItem(), std::nullopt);
  media.addItemsWithTitles({"C"});
  EXPECT_TRUE(media.isItemEnabledAtIndex(0));
}

TEST_P(ShellConformance, PopUpIndexOutsideTheMenuSelectsNothing) {
  load();
  PopUpButton& media = popUp("PiMediaType");
  media.addItemsWithTitles({"A", "B"});
  for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{2}, INT64_MAX, INT64_MIN}) {
    media.selectItemAtIndex(1);
    media.selectItemAtIndex(index);
    EXPECT_EQ(media.indexOfSelectedItem(), -1) << index;
    EXPECT_EQ(media.titleOfSelectedItem(), std::nullopt) << index;
  }
  media.removeAllItems();
  media.selectItemAtIndex(0);
  EXPECT_EQ(media.indexOfSelectedItem(), -1);
}

TEST_P(ShellConformance, PopUpItemsAreDisabledOneByOne) {
  load();
  PopUpButton& media = popUp("PiMediaType");
  media.setAutoenablesItems(false);
  media.addItemsWithTitles({"A", "A", "B"});
  media.setItemEnabledAtIndex(1, false);
  for (const std::int64_t outside : {-1, 3})
    media.setItemEnabledAtIndex(outside, false);
  EXPECT_TRUE(media.isItemEnabledAtIndex(0));
  EXPECT_FALSE(media.isItemEnabledAtIndex(1));
  EXPECT_TRUE(media.isItemEnabledAtIndex(2));
  media.setItemEnabledAtIndex(1, true);
  EXPECT_TRUE(media.isItemEnabledAtIndex(1));
}

TEST_P(ShellConformance, DisabledItemIsSelectedFromCodeOnly) {
  load();
  PopUpButton& media = popUp("CmMediaType");
  media.addItemsWithTitles({"A", "B", "C"});
  media.selectItemAtIndex(0);
  media.setItemEnabledAtIndex(1, false);
  user().choose("CmMediaType", 1);
  EXPECT_EQ(media.indexOfSelectedItem(), 0);
  media.selectItemAtIndex(1);
  EXPECT_EQ(media.indexOfSelectedItem(), 1);
  media.setItemEnabledAtIndex(1, false);
  EXPECT_EQ(media.indexOfSelectedItem(), 1);
}

TEST_P(ShellConformance, UserChoosesAnItem) {
  load();
  popUp("PiMediaType").addItemsWithTitles({"A", "B"});
  user().choose("PiMediaType", 1);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 1);
  EXPECT_THAT(owner().sent, IsEmpty());
}

TEST_P(ShellConformance, UserCannotChooseOutsideTheMenuOrFromADisabledPopUp) {
  load();
  PopUpButton& media = popUp("PiMediaType");
  media.addItemsWithTitles({"A", "B"});
  media.selectItemAtIndex(0);
  for (const std::int64_t index : {-1, 2, 99})
    user().choose("PiMediaType", index);
  EXPECT_EQ(media.indexOfSelectedItem(), 0);
  media.setEnabled(false);
  user().choose("PiMediaType", 1);
  EXPECT_EQ(media.indexOfSelectedItem(), 0);
  media.selectItemAtIndex(1);
  EXPECT_EQ(media.indexOfSelectedItem(), 1);
}

TEST_P(ShellConformance, StateOfAPopUpShowsNothing) {
  load();
  PopUpButton& media = popUp("CmMediaType");
  media.addItemsWithTitles({"A", "B"});
  media.selectItemAtIndex(1);
  media.setState(1);
  media.setState(0);
  EXPECT_EQ(media.indexOfSelectedItem(), 1);
  EXPECT_TRUE(media.isItemEnabledAtIndex(1));
  EXPECT_TRUE(media.isEnabled());
}

}  // namespace publishing
