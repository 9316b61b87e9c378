// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PublishingPDERestore : public PanelTest {
 protected:
  PublishingPDERestore() { usePPDText(smallPrinter()); }

  void restoreFrom(const std::map<std::string, std::string>& values) {
    set(values);
    panel.panelView();
    restore();
  }
};

TEST_F(PublishingPDERestore, EmptySettingsTurnBothFeaturesOff) {
  restoreFrom({});
  EXPECT_EQ(panel.state().covermodeEnableState, 0);
  EXPECT_EQ(panel.state().pageinsertEnableState, 0);
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 0);
  EXPECT_FALSE(panel.state().restoreFlag);
  EXPECT_EQ(tabs().numberOfTabViewItems(), 2);
  EXPECT_THAT(enabledSides(), IsEmpty());  // the refresh has run
}

TEST_F(PublishingPDERestore, OnIsComparedExactly) {
  for (const char* value : {"on", "ON", "On ", "1", ""}) {
    restoreFrom({{"VtCoverModeState", value}, {"VtPageinsertState", value}});
    EXPECT_EQ(panel.state().covermodeEnableState, 0) << value;
    EXPECT_EQ(panel.state().pageinsertEnableState, 0) << value;
    EXPECT_EQ(box("CmCheckBox").state(), 0) << value;
    EXPECT_EQ(box("PiCheckBox").state(), 0) << value;
  }
}

TEST_F(PublishingPDERestore, CoverModeTakesEveryStoredValue) {
  setTwoSided(true);
  restoreFrom({{"VtCoverModeState", "On"},
               {"VtCoverModeValue", "13"},
               {"VtCovermodeRadioButtonState", "2"},
               {"VtCmIndex", "2"},
               {"CoverMediaType", "Lower"}});
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_THAT(tickedSides(), ElementsAre("CmFrontOutside", "CmBackOutside", "CmBackInside"));
  EXPECT_EQ(matrix().selectedColumn(), 1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 2);
  EXPECT_EQ(panel.state().covermodeValue, 13);
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 2);
  EXPECT_EQ(panel.state().cmIndex, 2);
  EXPECT_EQ(panel.state().cmmediatype, "Lower");
  EXPECT_EQ(panel.state().indexTempString, "2");
  EXPECT_TRUE(panel.state().restoreFlag);
}

TEST_F(PublishingPDERestore, CoverModeWithoutItsValueTakesIndexAndMediaInTheRefresh) {
  restoreFrom({{"VtCoverModeState", "On"},
               {"VtCmIndex", "2"},
               {"CoverMediaType", "Lower"},
               {"VtCovermodeRadioButtonState", "2"}});
  EXPECT_EQ(panel.state().covermodeEnableState, 1);
  EXPECT_EQ(panel.state().cmIndex, 2);
  EXPECT_EQ(panel.state().cmmediatype, "Lower");
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 2);
  EXPECT_EQ(matrix().selectedColumn(), -1);  // the radio state needs the value
}

TEST_F(PublishingPDERestore, UnknownRadioStateEndsAsNoneWithNoCell) {
  restoreFrom({{"VtCoverModeState", "On"},
               {"VtCoverModeValue", "1"},
               {"VtCovermodeRadioButtonState", "3"}});
  EXPECT_EQ(matrix().selectedColumn(), -1);
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 0);
}

TEST_F(PublishingPDERestore, PageInsertTakesEveryStoredValue) {
  setTwoSided(true);
  restoreFrom({{"VtPageinsertState", "On"},
               {"VtPageinsertNums", "3,5,9,"},
               {"VtPageinsertValue", "3"},
               {"VtPiIndex", "1"},
               {"PageMediaType", "Labels"}});
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_EQ(pageField().stringValue(), "3,5,9,");
  EXPECT_THAT(tickedSides(), ElementsAre("PiPrintOnFront", "PiPrintOnBack"));
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 1);
  EXPECT_EQ(panel.state().pageinsertValue, 3);
  EXPECT_EQ(panel.state().piIndex, 1);
  EXPECT_EQ(panel.state().pimediatype, "Labels");
  EXPECT_TRUE(panel.state().restoreFlag);
}

TEST_F(PublishingPDERestore, IndexWithoutMediaNamesTheMediaOfItsItem) {
  restoreFrom({{"VtCoverModeState", "On"},
               {"VtCoverModeValue", "1"},
               {"VtCmIndex", "2"},
               {"VtPageinsertState", "On"},
               {"VtPiIndex", "3"}});
  EXPECT_EQ(panel.state().cmmediatype, "Lower Tray");
  EXPECT_EQ(panel.state().pimediatype, "Lower Tray");
}

TEST_F(PublishingPDERestore, PageInsertValuesAreReadIndependently) {
  restoreFrom({{"VtPageinsertState", "On"}, {"VtPiIndex", "3"}});
  EXPECT_EQ(panel.state().pageinsertEnableState, 1);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 3);
  EXPECT_THAT(tickedSides(), IsEmpty());
  EXPECT_EQ(pageField().stringValue(), "");
}

TEST_F(PublishingPDERestore, PrintOnBackNeedsATwoSidedJob) {
  restoreFrom({{"VtPageinsertState", "On"}, {"VtPageinsertValue", "3"}});
  EXPECT_THAT(tickedSides(), ElementsAre("PiPrintOnFront"));
  EXPECT_EQ(panel.state().pageinsertValue, 3);
}

TEST_F(PublishingPDERestore, PageListOutlivesSwitchingOffInTheStateNotInTheField) {
  restoreFrom({{"VtPageinsertState", "Off"}, {"VtPageinsertNums", "4,7,"}});
  EXPECT_EQ(panel.state().pageinsertEnableState, 0);
  EXPECT_EQ(panel.state().pageNumValue, "4,7,");
  EXPECT_EQ(pageField().stringValue(), "");
  EXPECT_FALSE(pageField().isEnabled());
}

TEST_F(PublishingPDERestore, SecondRestoreRemovesNoSecondTab) {
  restoreFrom({});
  restore();
  EXPECT_EQ(tabs().numberOfTabViewItems(), 2);
  EXPECT_EQ(tabs().tabViewItemLabelAtIndex(1), "Page Insert");
}

TEST_F(PublishingPDERestore, StoredFeatureEndsTransparencyInterleaving) {
  for (const char* key : {"VtCoverModeState", "VtPageinsertState"}) {
    host->settings.setValue("VtCoverModeState", std::nullopt);
    restoreFrom({});
    box("TiCheckBox").click();
    box("TiCheckBox").setState(0);
    ASSERT_EQ(panel.state().transparencyinterleavingEnableState, 1);
    restoreFrom({{key, "On"}});
    EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 0) << key;
  }
}

TEST_F(PublishingPDERestore, NothingStoredKeepsTransparencyInterleaving) {
  restoreFrom({});
  box("TiCheckBox").click();
  restore();
  EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 1);
}

TEST_F(PublishingPDERestore, NumbersAreReadLeniently) {
  struct Case {
    const char* stored;
    std::int64_t index;
    std::int64_t selected;
  };
  for (const auto& [stored, index, selected] : {
           Case{" \t+2abc", 2, 2},
           Case{"abc", 0, 0},
           Case{"", 0, 0},
           Case{"1.9", 1, 1},
           Case{"-1", -1, -1},
           Case{"3", 3, -1},
           Case{"99999999999999999999", 2147483647, -1},
           Case{"-99999999999999999999", -2147483648, -1},
       }) {
    restoreFrom({{"VtCoverModeState", "On"}, {"VtCoverModeValue", "1"}, {"VtCmIndex", stored}});
    EXPECT_EQ(panel.state().cmIndex, index) << stored;
    EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), selected) << stored;
  }
}

TEST_F(PublishingPDERestore, OffKeepsWhatWasChosenForTheIndex) {
  restoreFrom({{"VtPageinsertState", "On"}, {"VtPiIndex", "2"}});
  set({{"VtPageinsertState", "Off"}});
  restore();
  EXPECT_EQ(panel.state().piIndex, 2);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 0);
}

TEST_F(PublishingPDERestore, BeforeTheViewLoadsItWithoutFormatter) {
  set({{"VtPageinsertState", "On"}, {"VtPageinsertNums", "3,"}, {"VtPiIndex", "1"}});
  restore();
  ASSERT_EQ(bundle->interfaces.size(), 1u);
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_EQ(pageField().stringValue(), "3,");
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 1);
  EXPECT_TRUE(panel.state().restoreFlag);  // set again by the restore that awakening ran

  panel.panelView();
  EXPECT_EQ(bundle->interfaces.size(), 1u);
  pageField().type("3x");
  EXPECT_EQ(pageField().stringValue(), "3x");
}

TEST_F(PublishingPDERestore, FeatureThatWentOffIsForgottenWithTheNextView) {
  restoreFrom({{"VtCoverModeState", "On"}});
  ASSERT_TRUE(panel.state().restoreFlag);
  set({{"VtCoverModeState", "Off"}});
  clearView();
  panel.panelView();
  EXPECT_FALSE(panel.state().restoreFlag);
}

TEST_F(PublishingPDERestore, BeforeTheViewLeavesTheTabsToTheNextRefresh) {
  restore();
  EXPECT_EQ(tabs().numberOfTabViewItems(), 3);
  panel.willShow();
  EXPECT_EQ(tabs().numberOfTabViewItems(), 2);
}

TEST_F(PublishingPDERestore, BeforeTheViewEvaluatesTheConstraintsInTheEnd) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  set({{"VtCoverModeState", "On"}});
  restore();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1));
  EXPECT_THAT(disabledItems("PiMediaType"), ElementsAre(2));
}

}  // namespace
}  // namespace publishing::test
