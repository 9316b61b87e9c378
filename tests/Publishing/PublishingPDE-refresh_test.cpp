// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNup = "com.apple.print.PrintSettings.PMLayoutNUp";

class PublishingPDERefresh : public PanelTest {
 protected:
  PublishingPDERefresh() {
    usePPDText(smallPrinter());
    start();
  }

  void turnBothOn() {
    box("CmCheckBox").click();
    box("PiCheckBox").click();
  }
  void expectSwitchedOff() {
    EXPECT_FALSE(box("CmCheckBox").isEnabled());
    EXPECT_FALSE(box("PiCheckBox").isEnabled());
    EXPECT_EQ(box("CmCheckBox").state(), 0);
    EXPECT_EQ(box("PiCheckBox").state(), 0);
    EXPECT_THAT(enabledSides(), IsEmpty());
    EXPECT_THAT(tickedSides(), IsEmpty());
    EXPECT_FALSE(matrix().isEnabled());
    EXPECT_EQ(matrix().selectedColumn(), -1);
    EXPECT_FALSE(popUp("CmMediaType").isEnabled());
    EXPECT_FALSE(popUp("PiMediaType").isEnabled());
    EXPECT_FALSE(pageField().isEnabled());
    EXPECT_EQ(panel.state().covermodeRadioButtonState, -1);
    EXPECT_EQ(panel.state().covermodeEnableState, 0);
    EXPECT_EQ(panel.state().covermodeValue, 0);
    EXPECT_EQ(panel.state().pageinsertEnableState, 0);
    EXPECT_EQ(panel.state().pageinsertValue, 0);
  }
};

TEST_F(PublishingPDERefresh, ReverseOutputSwitchesBothFeaturesOff) {
  turnBothOn();
  box("CmFrontOutside").click();
  box("PiPrintOnFront").click();
  set({{"OutputOrder", "Reverse"}});
  panel.willShow();
  expectSwitchedOff();
}

TEST_F(PublishingPDERefresh, NupSwitchesBothFeaturesOff) {
  turnBothOn();
  set({{kNup, "1"}});
  panel.willShow();
  expectSwitchedOff();
}

TEST_F(PublishingPDERefresh, SwitchedOffRadioStateStandsUntilTheControlsAreRead) {
  set({{kNup, "1"}});
  panel.willShow();
  ASSERT_EQ(panel.state().covermodeRadioButtonState, -1);
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 0);
}

TEST_F(PublishingPDERefresh, FeaturesComeBackOffWhenTheLayoutAllowsThem) {
  turnBothOn();
  set({{"OutputOrder", "Reverse"}});
  panel.willShow();
  host->settings.setValue("OutputOrder", std::nullopt);
  panel.willShow();
  EXPECT_TRUE(box("CmCheckBox").isEnabled());
  EXPECT_TRUE(box("PiCheckBox").isEnabled());
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 0);
}

TEST_F(PublishingPDERefresh, OtherOrdersAndLayoutsChangeNothing) {
  struct Case {
    const char* key;
    const char* value;
  };
  for (const auto& [key, value] :
       {Case{"OutputOrder", "Normal"}, Case{"OutputOrder", "reverse"}, Case{"OutputOrder", "R"},
        Case{"OutputOrder", ""}, Case{kNup, "0"}, Case{kNup, "2"}, Case{kNup, "On"}}) {
    set({{key, value}});
    panel.willShow();
    EXPECT_TRUE(box("CmCheckBox").isEnabled()) << key << value;
    host->settings.setValue(key, std::nullopt);
  }
}

TEST_F(PublishingPDERefresh, NupIsReadAsANumber) {
  set({{kNup, " 1 up"}});
  panel.willShow();
  expectSwitchedOff();
}

TEST_F(PublishingPDERefresh, FailedCopyOfTheSettingsCountsAsNoNup) {
  set({{kNup, "1"}});
  host->settings.setCopyFails(true);
  panel.willShow();
  EXPECT_TRUE(box("CmCheckBox").isEnabled());
}

TEST_F(PublishingPDERefresh, OneSidedJobHasNoInsideNorBackSides) {
  set({{"VtCoverModeState", "On"},
       {"VtCoverModeValue", "15"},
       {"VtCovermodeRadioButtonState", "2"},
       {"VtPageinsertState", "On"},
       {"VtPageinsertValue", "3"}});
  restore();
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmBackInside", "PiPrintOnFront"));
  EXPECT_THAT(tickedSides(), ElementsAre("CmFrontOutside", "CmBackInside", "PiPrintOnFront"));
}

TEST_F(PublishingPDERefresh, DuplexModesAboveOneAreTwoSided) {
  struct Case {
    std::optional<std::int32_t> mode;
    bool twoSided;
  };
  turnBothOn();
  for (const auto& [mode, twoSided] : {Case{std::nullopt, false}, Case{-1, false}, Case{0, false},
                                       Case{1, false}, Case{2, true}, Case{3, true}}) {
    host->settings.setDuplex(mode);
    panel.willShow();
    EXPECT_EQ(box("CmFrontInside").isEnabled(), twoSided);
    EXPECT_EQ(box("PiPrintOnBack").isEnabled(), twoSided);
  }
}

TEST_F(PublishingPDERefresh, FrontCoverOnlyHasNoBackSides) {
  setTwoSided(true);
  set({{"VtCoverModeState", "On"},
       {"VtCoverModeValue", "15"},
       {"VtCovermodeRadioButtonState", "1"}});
  restore();
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmFrontInside"));
  EXPECT_THAT(tickedSides(), ElementsAre("CmFrontOutside", "CmFrontInside"));
}

TEST_F(PublishingPDERefresh, NoRadioCellEnablesTheBackSides) {
  for (const char* radioState : {"0", "-1"}) {
    set({{"VtCoverModeState", "On"},
         {"VtCoverModeValue", "1"},
         {"VtCovermodeRadioButtonState", radioState}});
    setTwoSided(true);
    restore();
    EXPECT_EQ(matrix().selectedColumn(), -1) << radioState;
    EXPECT_THAT(enabledSides(),
                ElementsAre("CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside"));
    setTwoSided(false);
    restore();
    EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmBackInside")) << radioState;
  }
}

TEST_F(PublishingPDERefresh, NoSideTickedIsAValueOfItsOwn) {
  box("CmCheckBox").click();
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeValue, 16);
  matrix().click(1);
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeValue, 32);
  matrix().selectCellAtRow(0, -1);
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeValue, 0);
}

TEST_F(PublishingPDERefresh, NoSideValuesTickNoBox) {
  setTwoSided(true);
  for (const char* value : {"16", "32", "48"}) {
    set({{"VtCoverModeState", "On"},
         {"VtCoverModeValue", value},
         {"VtCovermodeRadioButtonState", "2"}});
    restore();
    EXPECT_THAT(tickedSides(), IsEmpty()) << value;
  }
}

TEST_F(PublishingPDERefresh, SideBoxesAddUp) {
  setTwoSided(true);
  box("CmCheckBox").click();
  matrix().click(1);
  const std::pair<const char*, std::int64_t> sides[] = {
      {"CmFrontOutside", 1}, {"CmFrontInside", 3}, {"CmBackOutside", 7}, {"CmBackInside", 15}};
  for (const auto& [name, value] : sides) {
    box(name).click();
    panel.updateSettings();
    EXPECT_EQ(panel.state().covermodeValue, value);
  }
}

TEST_F(PublishingPDERefresh, MixedSideCountsAsTouchedButNotAsOn) {
  box("CmCheckBox").click();
  box("CmFrontOutside").setState(-1);
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeValue, 0);
  box("PiPrintOnFront").setState(-1);
  panel.updateSettings();
  EXPECT_EQ(panel.state().pageinsertValue, 1);
}

TEST_F(PublishingPDERefresh, CoverWithoutIndexResetsTheOtherPopUp) {
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(2);
  popUp("PiMediaType").selectItemAtIndex(3);
  panel.updateUI();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 2);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 0);
}

TEST_F(PublishingPDERefresh, InsertWithoutIndexResetsTheOtherPopUp) {
  box("PiCheckBox").click();
  popUp("PiMediaType").choose(3);
  popUp("CmMediaType").selectItemAtIndex(2);
  panel.updateUI();
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 3);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 0);
}

TEST_F(PublishingPDERefresh, WithBothFeaturesOnNoPopUpIsReset) {
  turnBothOn();
  popUp("CmMediaType").choose(2);
  popUp("PiMediaType").choose(3);
  panel.updateUI();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 2);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 3);
}

TEST_F(PublishingPDERefresh, StoredIndexWinsOverTheUsersChoice) {
  set({{"VtCmIndex", "1"}, {"VtPiIndex", "2"}});
  turnBothOn();
  popUp("CmMediaType").choose(2);
  popUp("PiMediaType").choose(3);
  panel.updateUI();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 1);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 2);
}

TEST_F(PublishingPDERefresh, PrintOnBackValueOfAOneSidedJobTicksTheFrontOnly) {
  set({{"VtPageinsertValue", "3"}});
  box("PiCheckBox").click();
  EXPECT_THAT(tickedSides(), ElementsAre("PiPrintOnFront"));
  EXPECT_EQ(panel.state().pageinsertValue, 3);
}

TEST_F(PublishingPDERefresh, MissingInsertValueLeavesTheBoxes) {
  setTwoSided(true);
  box("PiCheckBox").click();
  box("PiPrintOnBack").click();
  panel.updateUI();
  EXPECT_THAT(tickedSides(), ElementsAre("PiPrintOnBack"));
}

TEST_F(PublishingPDERefresh, StoredMediaKeywordsReplaceTheTitles) {
  turnBothOn();
  EXPECT_EQ(panel.state().cmmediatype, "Printer Default");
  set({{"CoverMediaType", "Upper"}, {"PageMediaType", "Labels"}});
  panel.updateUI();
  EXPECT_EQ(panel.state().cmmediatype, "Upper");
  EXPECT_EQ(panel.state().pimediatype, "Labels");
}

TEST_F(PublishingPDERefresh, IndexOutsideThePopUpSelectsNothingUntilTheControlsAreRead) {
  set({{"VtCmIndex", "9"}});
  box("CmCheckBox").click();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), -1);
  EXPECT_EQ(panel.state().cmIndex, 9);
  panel.updateSettings();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 0);
  EXPECT_EQ(panel.state().cmIndex, 0);
}

TEST_F(PublishingPDERefresh, TransparencyControlsAreNotTouched) {
  box("TiCheckBox").setState(-1);
  box("TiPrintOnBack").setState(1);
  popUp("TiMediaType").addItemsWithTitles({"A"});
  turnBothOn();
  panel.willShow();
  EXPECT_EQ(box("TiCheckBox").state(), -1);
  EXPECT_TRUE(box("TiCheckBox").isEnabled());
  EXPECT_EQ(box("TiPrintOnBack").state(), 1);
  EXPECT_EQ(popUp("TiMediaType").numberOfItems(), 1);
}

}  // namespace
}  // namespace publishing::test
