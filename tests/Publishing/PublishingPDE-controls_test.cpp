// SPDX-License-Identifier: Apache-2.0
// Building the panel, and the media items that stand for trays.
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class PublishingPDEControls : public PanelTest {};

TEST_F(PublishingPDEControls, ThreeTabsLoseTheWithdrawnOne) {
  usePPDText(smallPrinter());
  panel.panelView();
  ASSERT_EQ(tabs().numberOfTabViewItems(), 2);
  EXPECT_EQ(tabs().tabViewItemLabelAtIndex(0), "Cover Mode");
  EXPECT_EQ(tabs().tabViewItemLabelAtIndex(1), "Page Insert");
}

TEST_F(PublishingPDEControls, AnotherNumberOfTabsStays) {
  for (const std::vector<std::string>& labels :
       {std::vector<std::string>{"One"}, {"One", "Two"}, {"One", "Two", "Three", "Four"}}) {
    bundle->tabLabels = labels;
    PublishingPDE fresh(host, bundle);
    fresh.panelView();
    fresh.restoreValuesAndReturnError();
    fresh.willShow();
    EXPECT_EQ(tabs().numberOfTabViewItems(), std::ssize(labels));
  }
}

TEST_F(PublishingPDEControls, LoadedAgainFillsPopUpsButKeepsTabsAndBringsNoFormatter) {
  usePPDText(smallPrinter());
  panel.panelView();
  pageField().type("3x");
  EXPECT_EQ(pageField().stringValue(), "3");

  clearView();
  EXPECT_NE(panel.panelView(), nullptr);
  ASSERT_EQ(bundle->interfaces.size(), 2u);
  EXPECT_EQ(titles("CmMediaType").size(), 3u);
  EXPECT_EQ(titles("PiMediaType").size(), 4u);
  EXPECT_EQ(tabs().numberOfTabViewItems(), 3);
  pageField().type("3x");
  EXPECT_EQ(pageField().stringValue(), "3x");
}

TEST_F(PublishingPDEControls, LoadedAgainAfterARestoreShowsTheStoredState) {
  usePPDText(smallPrinter());
  set({{"VtPageinsertState", "On"}, {"VtPageinsertNums", "3,"}});
  start();
  clearView();
  panel.panelView();
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_EQ(pageField().stringValue(), "3,");
}

TEST_F(PublishingPDEControls, PopUpsShowTheTextsInThePPDsOrder) {
  usePPDText(smallPrinter());
  panel.panelView();
  EXPECT_THAT(titles("CmMediaType"), ElementsAre("Printer Default", "Upper Tray", "Lower Tray"));
  EXPECT_THAT(titles("PiMediaType"),
              ElementsAre("Printer Default", "Labels", "Upper Tray", "Lower Tray"));
  EXPECT_THAT(titles("TiMediaType"), IsEmpty());
}

TEST_F(PublishingPDEControls, EqualTextsStaySeparateItems) {
  usePPDText(mediaLines("PageMediaType", {{"A", "Same"}, {"B", "Same"}}));
  panel.panelView();
  EXPECT_THAT(titles("PiMediaType"), ElementsAre("Same", "Same"));
}

TEST_F(PublishingPDEControls, BothPopUpsShowTheFirstItemAndTheMatrixMayBeEmpty) {
  usePPDText(smallPrinter());
  panel.panelView();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 0);
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 0);
  matrix().selectCellAtRow(0, 1);
  matrix().deselectAllCells();
  EXPECT_EQ(matrix().selectedColumn(), -1);
}

TEST_F(PublishingPDEControls, TextsAreUTF8WhenTheEncodingBeginsSo) {
  struct Case {
    const char* encoding;
    bool shown;
  };
  for (const auto& [encoding, shown] :
       {Case{"UTF-8", true}, Case{"UTF-8BOM", true}, Case{"utf-8", false}, Case{"UTF8", false},
        Case{"UTF", false}, Case{"ISOLatin1", false}, Case{"", false}, Case{nullptr, false}}) {
    usePPD(
        openPPDText(mediaLines("CoverMediaType", {{"A", "Plain"}, {"B", "épais"}, {"C", "Last"}})));
    setEncoding(encoding);
    PublishingPDE fresh(host, bundle);
    fresh.panelView();
    if (shown) {
      EXPECT_THAT(titles("CmMediaType"), ElementsAre("Plain", "épais", "Last")) << encoding;
    } else {
      EXPECT_THAT(titles("CmMediaType"), ElementsAre("Plain", "Last"));
    }
  }
}

TEST_F(PublishingPDEControls, PPDThatNamesNoEncodingIsASCII) {
  usePPD(openWholePPD("*PPD-Adobe: \"4.3\"\n" +
                      mediaLines("CoverMediaType", {{"A", "Plain"}, {"B", "épais"}})));
  panel.panelView();
  EXPECT_THAT(titles("CmMediaType"), ElementsAre("Plain"));
}

TEST_F(PublishingPDEControls, TextThatIsNotUTF8IsLeftOut) {
  usePPDText(mediaLines("CoverMediaType", {{"A", "One"}, {"B", "Gr\xf6\xdf"}, {"C", "Three"}}));
  panel.panelView();
  EXPECT_THAT(titles("CmMediaType"), ElementsAre("One", "Three"));
}

TEST_F(PublishingPDEControls, UnterminatedTextEndsWithItsField) {
  usePPDText(smallPrinter());
  ppd_option_t* option = ppdFindOption(ppd.get(), "CoverMediaType");
  fillField(option->choices[1].text, std::string(sizeof(option->choices[1].text), 'x'));
  panel.panelView();
  EXPECT_EQ(titles("CmMediaType").at(1), std::string(sizeof(option->choices[1].text), 'x'));
}

TEST_F(PublishingPDEControls, InitializeWithoutPPDChangesNothing) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  start();
  ASSERT_THAT(disabledItems("CmMediaType"), ElementsAre(1));
  host->ppd = nullptr;
  panel.initializeUI();
  host->ppd = ppd.get();
  panel.updateConstraints();  // still on the model of the PPD before
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1));
}

class PublishingPDEConstraints : public PanelTest {};

TEST_F(PublishingPDEConstraints, ForbiddenTrayDisablesOneItemInEachPopUp) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1));  // second from the end in both
  EXPECT_THAT(disabledItems("PiMediaType"), ElementsAre(2));
}

TEST_F(PublishingPDEConstraints, PPDWithoutConstraintsEnablesEverything) {
  usePPDText(smallPrinter());
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), IsEmpty());
  EXPECT_THAT(disabledItems("PiMediaType"), IsEmpty());
}

TEST_F(PublishingPDEConstraints, FirstCallBuildsTheModel) {
  usePPDText(smallPrinter("*UIConstraints: *InputSlot Lower *Resolution 300dpi\n"));
  panel.updateConstraints();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(2));
  EXPECT_THAT(disabledItems("PiMediaType"), ElementsAre(3));
}

TEST_F(PublishingPDEConstraints, ItemIsEnabledAgainWhenTheMarkIsGone) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot\n"));
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1, 2));
  mark("Resolution", "600dpi");
  panel.willShow();
  EXPECT_THAT(disabledItems("CmMediaType"), IsEmpty());
}

TEST_F(PublishingPDEConstraints, DisabledItemStaysSelected) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 600dpi *InputSlot Lower\n"));
  start();
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(2);
  mark("Resolution", "600dpi");
  panel.willShow();
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 2);
  EXPECT_FALSE(popUp("CmMediaType").isItemEnabledAtIndex(2));
  EXPECT_TRUE(panel.saveValuesAndReturnError());
  EXPECT_EQ(host->pushes.size(), 1u);
}

TEST_F(PublishingPDEConstraints, MoreTraysThanMediaIsSurvived) {
  usePPDText(optionLines("InputSlot", {"A", "B", "C"}, "A") +
             optionLines("Resolution", {"300dpi"}, "300dpi") +
             mediaLines("CoverMediaType", {{"X", "X"}, {"C", "C"}}) +
             mediaLines("PageMediaType", {{"C", "C"}}) +
             "*UIConstraints: *Resolution 300dpi *InputSlot\n");
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(0, 1));  // trays B and C
  EXPECT_THAT(disabledItems("PiMediaType"), ElementsAre(0));
}

TEST_F(PublishingPDEConstraints, OffsetsCountThePPDsChoicesNotTheItems) {
  usePPDText(
      optionLines("InputSlot", {"Upper", "Lower"}, "Upper") +
      optionLines("Resolution", {"300dpi"}, "300dpi") +
      mediaLines("CoverMediaType", {{"Bad", "\xff"}, {"Upper", "Upper"}, {"Lower", "Lower"}}) +
      "*UIConstraints: *Resolution 300dpi *InputSlot Upper\n");
  start();
  ASSERT_THAT(titles("CmMediaType"), ElementsAre("Upper", "Lower"));
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1));
}

// libcups itself refuses keywords that are not ASCII.
TEST_F(PublishingPDEConstraints, KeywordThatCannotBeReadIsSkipped) {
  usePPDText(optionLines("InputSlot", {"Bad", "Upper", "Lower"}, "Upper") +
             optionLines("Resolution", {"300dpi"}, "300dpi") +
             mediaLines("CoverMediaType", {{"X", "X"}, {"Upper", "Upper"}, {"Lower", "Lower"}}) +
             "*UIConstraints: *Resolution 300dpi *InputSlot Lower\n");
  fillField(ppdFindOption(ppd.get(), "InputSlot")->choices[0].choice, "\xff");
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(1));  // Lower is the second that is left
}

// libcups itself merges choices of the same keyword.
TEST_F(PublishingPDEConstraints, RepeatedTrayMovesTheItemOfItsFirstEntry) {
  usePPDText(optionLines("InputSlot", {"A", "B", "C"}, "A") +
             optionLines("Resolution", {"300dpi"}, "300dpi") +
             mediaLines("CoverMediaType", {{"A", "A"}, {"B", "B"}, {"C", "C"}}) +
             "*UIConstraints: *Resolution 300dpi *InputSlot A\n");
  fillField(ppdFindOption(ppd.get(), "InputSlot")->choices[2].choice, "A");
  start();
  EXPECT_THAT(disabledItems("CmMediaType"), ElementsAre(0));
}

TEST_F(PublishingPDEConstraints, ReasonNamesTheMarkedChoices) {
  usePPDText(smallPrinter("*UIConstraints: *Resolution 300dpi *InputSlot Upper\n"));
  start();
  const auto reasons = panel.choicesForbiddingMedia("PageMediaType", 2);
  ASSERT_EQ(reasons.size(), 1u);
  EXPECT_EQ(reasons.front().option, "Resolution");
  EXPECT_EQ(reasons.front().choice, "300dpi");
  for (const std::int64_t index : {-1, 0, 1, 3, 4}) {
    EXPECT_THAT(panel.choicesForbiddingMedia("PageMediaType", index), IsEmpty()) << index;
  }
}

TEST_F(PublishingPDEConstraints, ReasonBeforeTheModelIsNone) {
  usePPDText(smallPrinter());
  EXPECT_THAT(panel.choicesForbiddingMedia("CoverMediaType", 1), IsEmpty());
}

}  // namespace
}  // namespace publishing::test
