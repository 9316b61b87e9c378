// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PublishingPDEActions : public PanelTest {
 protected:
  PublishingPDEActions() {
    usePPDText(smallPrinter());
    start();
  }
};

TEST_F(PublishingPDEActions, TransparencySwitchesTheOthersOffButLeavesThemClickable) {
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  box("TiCheckBox").click();
  EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 1);
  EXPECT_EQ(panel.state().covermodeEnableState, 0);
  EXPECT_EQ(panel.state().pageinsertEnableState, 0);
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 0);
  EXPECT_TRUE(box("CmCheckBox").isEnabled());
  EXPECT_TRUE(box("PiCheckBox").isEnabled());
  EXPECT_THAT(enabledSides(), IsEmpty());
}

TEST_F(PublishingPDEActions, EitherFeatureEndsTransparencyButLeavesItsBox) {
  for (const char* name : {"CmCheckBox", "PiCheckBox"}) {
    box("TiCheckBox").setState(0);
    box("TiCheckBox").click();
    ASSERT_EQ(panel.state().transparencyinterleavingEnableState, 1);
    box(name).click();
    EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 0) << name;
    EXPECT_EQ(box("TiCheckBox").state(), 1) << name;
    box(name).click();
    EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 0) << name;
  }
}

TEST_F(PublishingPDEActions, TransparencyOffChangesNothingElse) {
  box("TiCheckBox").click();
  box("CmCheckBox").click();
  box("TiCheckBox").click();
  EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 0);
  EXPECT_EQ(panel.state().covermodeEnableState, 1);
}

TEST_F(PublishingPDEActions, CoverAndInsertsGoTogether) {
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  EXPECT_EQ(panel.state().covermodeEnableState, 1);
  EXPECT_EQ(panel.state().pageinsertEnableState, 1);
  box("CmCheckBox").click();
  EXPECT_EQ(panel.state().pageinsertEnableState, 1);
}

TEST_F(PublishingPDEActions, TickingTheCoverSelectsTheFrontCoverOnly) {
  setTwoSided(true);
  box("CmCheckBox").click();
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 1);
  EXPECT_EQ(matrix().selectedColumn(), 0);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmFrontInside"));
}

TEST_F(PublishingPDEActions, UntickingTheCoverClearsIt) {
  setTwoSided(true);
  box("CmCheckBox").click();
  matrix().click(1);
  box("CmBackInside").click();
  popUp("CmMediaType").choose(1);
  box("CmCheckBox").click();
  EXPECT_THAT(enabledSides(), IsEmpty());
  EXPECT_THAT(tickedSides(), IsEmpty());
  EXPECT_EQ(matrix().selectedColumn(), -1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 0);
}

TEST_F(PublishingPDEActions, TickingInsertsEnablesTheirControls) {
  box("PiCheckBox").click();
  EXPECT_TRUE(pageField().isEnabled());
  EXPECT_TRUE(popUp("PiMediaType").isEnabled());
  EXPECT_THAT(enabledSides(), ElementsAre("PiPrintOnFront"));
  pageField().type("5,8,12-14");
  EXPECT_EQ(pageField().stringValue(), "5,8,12-14");
  box("PiCheckBox").click();
  EXPECT_FALSE(pageField().isEnabled());
  EXPECT_EQ(pageField().stringValue(), "");
}

TEST_F(PublishingPDEActions, FrontAndBackOnAOneSidedJobReachesTwoSides) {
  box("CmCheckBox").click();
  matrix().click(1);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmBackInside"));
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 2);
}

TEST_F(PublishingPDEActions, FrontAndBackOnATwoSidedJobReachesAllSides) {
  setTwoSided(true);
  box("CmCheckBox").click();
  matrix().click(1);
  EXPECT_THAT(enabledSides(),
              ElementsAre("CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside"));
}

TEST_F(PublishingPDEActions, ChoosingCoversUnticksTheSides) {
  setTwoSided(true);
  box("CmCheckBox").click();
  for (const std::int64_t column : {1, 0}) {
    matrix().click(1);
    for (const char* name : {"CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside"}) {
      box(name).click();
    }
    matrix().click(column);
    EXPECT_THAT(tickedSides(), IsEmpty()) << column;
  }
  EXPECT_EQ(panel.state().covermodeRadioButtonState, 1);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmFrontInside"));
}

TEST_F(PublishingPDEActions, FrontCoverOnAOneSidedJobReachesItsOutside) {
  box("CmCheckBox").click();
  matrix().click(0);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside"));
}

TEST_F(PublishingPDEActions, ChoosingTheFrontCoverFollowsATwoSidedSettingThatChanged) {
  box("CmCheckBox").click();
  setTwoSided(true);
  matrix().click(0);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmFrontInside"));
  setTwoSided(false);
  matrix().click(0);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside"));
}

TEST_F(PublishingPDEActions, ChoosingCoversEnablesTheSidesThatEveryJobReaches) {
  box("CmCheckBox").click();
  for (const std::int64_t column : {0, 1}) {
    box("CmFrontOutside").setEnabled(false);
    matrix().click(column);
    EXPECT_TRUE(box("CmFrontOutside").isEnabled()) << column;
  }
}

TEST_F(PublishingPDEActions, ChoosingCoversLeavesTheValueToTheNextReading) {
  box("CmCheckBox").click();
  const std::int64_t before = panel.state().covermodeValue;
  matrix().click(1);
  EXPECT_EQ(panel.state().covermodeValue, before);
  panel.updateSettings();
  EXPECT_EQ(panel.state().covermodeValue, 32);
}

TEST_F(PublishingPDEActions, TabChangeOnATwoSidedJobEndsTransparency) {
  setTwoSided(true);
  box("TiCheckBox").click();
  ASSERT_EQ(panel.state().transparencyinterleavingEnableState, 1);
  tabs().select(1);
  EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 0);
}

TEST_F(PublishingPDEActions, TabChangeOnAOneSidedJobKeepsTransparency) {
  box("TiCheckBox").click();
  tabs().select(1);
  EXPECT_EQ(panel.state().transparencyinterleavingEnableState, 1);
}

TEST_F(PublishingPDEActions, TabChangeFollowsAJobThatBecameTwoSided) {
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  setTwoSided(true);
  tabs().select(1);
  EXPECT_THAT(enabledSides(),
              ElementsAre("CmFrontOutside", "CmFrontInside", "PiPrintOnFront", "PiPrintOnBack"));
  setTwoSided(false);
  matrix().click(1);
  setTwoSided(true);
  tabs().select(0);
  EXPECT_TRUE(box("CmBackOutside").isEnabled());
}

TEST_F(PublishingPDEActions, TabChangeOnATwoSidedJobEnablesNothingOfAFeatureThatIsOff) {
  setTwoSided(true);
  tabs().select(1);
  EXPECT_THAT(enabledSides(), IsEmpty());
}

TEST_F(PublishingPDEActions, TabChangeFollowsAJobThatBecameOneSided) {
  setTwoSided(true);
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  matrix().click(1);
  for (const char* name : {"CmFrontInside", "CmBackOutside", "CmBackInside", "PiPrintOnBack"}) {
    box(name).click();
  }
  host->settings.setDuplex(std::nullopt);
  tabs().select(1);
  EXPECT_THAT(enabledSides(), ElementsAre("CmFrontOutside", "CmBackInside", "PiPrintOnFront"));
  EXPECT_THAT(tickedSides(), ElementsAre("CmBackInside"));
}

TEST_F(PublishingPDEActions, TabChangeReadsTheControlsAndShowsThePages) {
  box("PiCheckBox").click();
  pageField().type("5,8");
  tabs().select(1);
  EXPECT_EQ(panel.state().pageNumValue, "5,8");
  EXPECT_EQ(pageField().stringValue(), "5,8");
}

}  // namespace
}  // namespace publishing::test
