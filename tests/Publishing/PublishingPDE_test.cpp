// SPDX-License-Identifier: Apache-2.0
// What a host asks of the panel as a whole.
#include "Publishing/PublishingPDE.h"

#include "tests/Publishing/PanelTest.h"
#include "tests/Publishing/ppd/AllocationCount.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::Pair;

class PublishingPDETest : public PanelTest {};

TEST_F(PublishingPDETest, StartsWithEverythingOff) {
  const PublishingSettings& state = panel.state();
  EXPECT_EQ(state.covermodeEnableState, 0);
  EXPECT_EQ(state.transparencyinterleavingEnableState, 0);
  EXPECT_EQ(state.pageinsertEnableState, 0);
  EXPECT_EQ(state.covermodeRadioButtonState, 0);
  EXPECT_EQ(state.covermodeValue, 0);
  EXPECT_EQ(state.printonbackValue, 0);
  EXPECT_EQ(state.pageinsertValue, 0);
  EXPECT_EQ(state.cmIndex, 0);
  EXPECT_EQ(state.piIndex, 0);
  EXPECT_EQ(state.tiIndex, 0);
  EXPECT_FALSE(state.restoreFlag);
  for (const auto& text : {state.pageNumValue, state.cmmediatype, state.timediatype,
                           state.pimediatype, state.indexTempString}) {
    EXPECT_EQ(text, std::nullopt);
  }
}

TEST_F(PublishingPDETest, KindNamesThePanelToTheDialog) {
  EXPECT_EQ(PublishingPDE::panelKind(), "com.zephrel.pde.VTPublishing.PublishingKind");
}

TEST_F(PublishingPDETest, SummaryLocalizesOffButNotOn) {
  usePPDText(smallPrinter());
  bundle->translations = {
      {"Cover Mode", "Umschlag"}, {"Page Insert", "Einlage"}, {"Off", "Aus"}, {"On", "Ein"}};
  set({{"VtCoverModeState", "On"}});
  start();
  EXPECT_THAT(panel.summaryInfo(), ElementsAre(Pair("Einlage", "Aus"), Pair("Umschlag", "On")));
}

TEST_F(PublishingPDETest, SummaryHasNoTransparencyInterleaving) {
  start();
  box("TiCheckBox").click();
  ASSERT_EQ(panel.state().transparencyinterleavingEnableState, 1);
  EXPECT_THAT(panel.summaryInfo(),
              ElementsAre(Pair("Cover Mode", "Off"), Pair("Page Insert", "Off")));
}

TEST_F(PublishingPDETest, NameIsLocalizedOnce) {
  bundle->translations["Publishing"] = "Veröffentlichen";
  const std::string* first = &panel.panelName();
  EXPECT_EQ(*first, "Veröffentlichen");
  bundle->translations["Publishing"] = "Publier";
  EXPECT_EQ(&panel.panelName(), first);
  EXPECT_EQ(*first, "Veröffentlichen");
}

TEST_F(PublishingPDETest, ViewIsLoadedOnce) {
  View* view = panel.panelView();
  EXPECT_NE(view, nullptr);
  EXPECT_EQ(panel.panelView(), view);
  EXPECT_EQ(bundle->interfaces.size(), 1u);
}

TEST_F(PublishingPDETest, SupportedOptionsAreTheSameListEveryTime) {
  const auto* options = &panel.supportedPPDOptionKeys();
  EXPECT_THAT(*options, ElementsAre("CoverMediaType", "TransMediaType", "PageMediaType"));
  EXPECT_EQ(&panel.supportedPPDOptionKeys(), options);
}

TEST_F(PublishingPDETest, HidesBeforeAndAfterTheViewIsLoaded) {
  EXPECT_TRUE(panel.shouldHide());
  panel.panelView();
  EXPECT_TRUE(panel.shouldHide());
}

TEST_F(PublishingPDETest, HelpAnswersWhetherTheViewerReportedAStatus) {
  EXPECT_FALSE(panel.shouldShowHelp());
  bundle->helpStatus = -43;
  EXPECT_TRUE(panel.shouldShowHelp());
  EXPECT_THAT(bundle->openedBooks, ElementsAre("Publishing Help", "Publishing Help"));
}

TEST_F(PublishingPDETest, TicketRoadIsClosed) {
  EXPECT_EQ(PublishingPDE::getPPDOnTiger(), nullptr);
  EXPECT_EQ(PublishingPDE::changePPDSettingForOption("CoverMediaType", "PrnDef"), 0);
}

TEST_F(PublishingPDETest, MissingDescriptionGivesNoViewAndNoCrash) {
  usePPDText(smallPrinter());
  bundle->hasDescription = false;
  set({{"VtCoverModeState", "On"}, {"VtPageinsertState", "On"}, {"VtPageinsertNums", "3,"}});
  EXPECT_EQ(panel.panelView(), nullptr);
  panel.willShow();
  restore();
  EXPECT_EQ(panel.state().covermodeEnableState, 1);
  EXPECT_FALSE(panel.saveValuesAndReturnError());  // no field, so no pages
  panel.tabViewDidSelectTabViewItem();
}

TEST_F(PublishingPDETest, DescriptionThatAppearsLaterIsLoaded) {
  usePPDText(smallPrinter());
  bundle->hasDescription = false;
  EXPECT_EQ(panel.panelView(), nullptr);
  bundle->hasDescription = true;
  EXPECT_NE(panel.panelView(), nullptr);
  EXPECT_EQ(titles("CmMediaType").size(), 3u);
}

TEST_F(PublishingPDETest, LoadThatThrewIsDoneAgain) {
  usePPDText(smallPrinter());
  bundle->throwsWhenAsked = true;
  EXPECT_THROW(panel.panelView(), std::runtime_error);
  EXPECT_THROW(panel.panelView(), std::runtime_error);
  bundle->throwsWhenAsked = false;
  EXPECT_NE(panel.panelView(), nullptr);
  EXPECT_EQ(bundle->interfaces.size(), 3U);
  EXPECT_EQ(titles("CmMediaType").size(), 3U);
  EXPECT_EQ(tabs().numberOfTabViewItems(), 2);
  box("PiCheckBox").click();
  pageField().type("5x");
  EXPECT_EQ(pageField().stringValue(), "5");
}

TEST_F(PublishingPDETest, WillShowSeesTheMarksOfNow) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 600dpi *InputSlot Lower\n"));
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre());
  mark("Resolution", "600dpi");
  panel.updateUI();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre());  // marks as last reloaded
  panel.willShow();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(2));
}

TEST_F(PublishingPDETest, WillShowFollowsAChangeOfPrinter) {
  usePPDText(smallPrinter());
  start();
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  panel.willShow();
  EXPECT_THAT(disabledItems("PiMediaType"), ElementsAre(2));
}

TEST_F(PublishingPDETest, PreviousModelIsReleased) {
  usePPDText(smallPrinter());
  start();
  panel.willShow();
  const auto before = liveAllocations();
  for (int round = 0; round < 10; ++round)
    panel.willShow();
  EXPECT_EQ(liveAllocations(), before);
}

TEST_F(PublishingPDETest, NoPPDShowsEmptyPopUps) {
  start();
  EXPECT_THAT(titles("CmMediaType"), ElementsAre());
  EXPECT_THAT(titles("PiMediaType"), ElementsAre());
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  pageField().type("5");
  EXPECT_TRUE(panel.saveValuesAndReturnError());
  EXPECT_EQ(setting("VtCmIndex"), "-1");
  EXPECT_EQ(setting("VtUnspecified"), "0");
  EXPECT_THAT(host->pushes, ElementsAre());
}

TEST_F(PublishingPDETest, PPDWithoutOptionsShowsEmptyPopUps) {
  usePPDText("");
  start();
  box("CmCheckBox").click();
  EXPECT_THAT(titles("CmMediaType"), ElementsAre());
  EXPECT_TRUE(panel.saveValuesAndReturnError());
  EXPECT_EQ(setting("VtUnspecified"), "0");
  EXPECT_THAT(host->pushes, ElementsAre());
}

TEST_F(PublishingPDETest, PPDThatGoesAwayIsSurvived) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  start();
  usePPD(nullptr);
  panel.willShow();
  panel.updateConstraints();
  box("CmCheckBox").click();
  EXPECT_TRUE(panel.saveValuesAndReturnError());
  EXPECT_THAT(host->pushes, ElementsAre());
  EXPECT_THAT(titles("CmMediaType"), ElementsAre("Printer Default", "Upper Tray", "Lower Tray"));
}

TEST_F(PublishingPDETest, PPDCutInHalfIsSurvived) {
  const std::string whole = smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n");
  for (std::size_t length = 0; length <= whole.size(); length += 7) {
    const std::string half = whole.substr(0, length);
    OpenedPPD opened;
    try {
      opened = openPPDText(half);
    } catch (const std::runtime_error&) {
      continue;  // libcups refuses what ends inside some lines
    }
    auto freshHost = std::make_shared<TestHost>();
    freshHost->ppd = opened.get();
    PublishingPDE fresh(freshHost, bundle);
    fresh.panelView();
    fresh.restoreValuesAndReturnError();
    fresh.willShow();
    box("CmCheckBox").click();
    EXPECT_TRUE(fresh.saveValuesAndReturnError());
    EXPECT_EQ(freshHost->pushes.size(), titles("CmMediaType").empty() ? 0u : 1u) << length;
  }
}

}  // namespace
}  // namespace publishing::test
