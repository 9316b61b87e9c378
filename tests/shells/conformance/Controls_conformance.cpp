// SPDX-License-Identifier: Apache-2.0
// Check boxes, radio cells, the page field and the tabs. Pop-ups have a file of their own.
#include "tests/shells/conformance/Conformance.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Refuses every text that holds an x.
class NoX final : public Formatter {
 public:
  bool isPartialStringValid(const std::string& partialString,
                            std::string& newEditingString) const override {
    if (partialString.find('x') != std::string::npos) return false;
    newEditingString = partialString;
    return true;
  }
};

}  // namespace

TEST_P(ShellConformance, ChangesFromCodeSendNoAction) {
  load();
  matrix().setAllowsEmptySelection(true);
  for (const int state : {1, -1, 0}) {
    for (auto& [name, outlet] : owner().checkBoxes)
      outlet->setState(state);
  }
  for (const std::int64_t column : {0, 1, -1, 0}) {
    matrix().selectCellAtRow(0, column);
  }
  matrix().deselectAllCells();
  pageField().setStringValue("5");
  tabs().removeTabViewItemAtIndex(0);
  EXPECT_THAT(owner().sent, IsEmpty());
}

TEST_P(ShellConformance, ControlsAreDisabledAndEnabled) {
  load();
  for (auto& [name, outlet] : owner().checkBoxes) {
    outlet->setEnabled(false);
    EXPECT_FALSE(outlet->isEnabled()) << name;
    outlet->setEnabled(true);
    EXPECT_TRUE(outlet->isEnabled()) << name;
  }
  for (Control* control : {static_cast<Control*>(&matrix()), static_cast<Control*>(&pageField()),
                           static_cast<Control*>(&popUp("CmMediaType"))}) {
    control->setEnabled(false);
    EXPECT_FALSE(control->isEnabled());
    control->setEnabled(true);
    EXPECT_TRUE(control->isEnabled());
  }
}

TEST_P(ShellConformance, CheckBoxKeepsItsThreeStates) {
  load();
  for (const int state : {1, 0, -1, 1, -1, 0}) {
    box("CmBackInside").setState(state);
    EXPECT_EQ(box("CmBackInside").state(), state);
  }
}

TEST_P(ShellConformance, ClickTogglesACheckBoxAndSendsItsAction) {
  load();
  CheckBox& cover = box("CmCheckBox");
  user().click("CmCheckBox");
  EXPECT_EQ(cover.state(), 1);
  EXPECT_THAT(owner().sent, ElementsAre(ControlsOwner::Sent{"changeCmEnableState", &cover}));
  user().click("CmCheckBox");
  EXPECT_EQ(cover.state(), 0);
  EXPECT_EQ(owner().sent.size(), 2u);
}

TEST_P(ShellConformance, ClickTurnsAMixedCheckBoxOff) {
  load();
  box("PiCheckBox").setState(-1);
  user().click("PiCheckBox");
  EXPECT_EQ(box("PiCheckBox").state(), 0);
  EXPECT_THAT(owner().sent,
              ElementsAre(ControlsOwner::Sent{"changePiEnableState", &box("PiCheckBox")}));
}

TEST_P(ShellConformance, WithdrawnFeatureStaysWired) {
  load();
  user().click("TiCheckBox");
  EXPECT_THAT(owner().sent,
              ElementsAre(ControlsOwner::Sent{"changeTiEnableState", &box("TiCheckBox")}));
}

TEST_P(ShellConformance, SideBoxesToggleWithoutAnAction) {
  load();
  for (const char* name : {"CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside",
                           "TiPrintOnBack", "PiPrintOnFront", "PiPrintOnBack"}) {
    user().click(name);
    EXPECT_EQ(box(name).state(), 1) << name;
  }
  EXPECT_THAT(owner().sent, IsEmpty());
}

TEST_P(ShellConformance, DisabledCheckBoxIgnoresTheUserNotTheCode) {
  load();
  box("CmCheckBox").setEnabled(false);
  user().click("CmCheckBox");
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_THAT(owner().sent, IsEmpty());
  box("CmCheckBox").setState(1);
  EXPECT_EQ(box("CmCheckBox").state(), 1);
}

TEST_P(ShellConformance, RadioCellsExcludeEachOther) {
  load();
  matrix().selectCellAtRow(0, 0);
  EXPECT_EQ(matrix().selectedColumn(), 0);
  matrix().selectCellAtRow(0, 1);
  EXPECT_EQ(matrix().selectedColumn(), 1);
}

TEST_P(ShellConformance, RadioSelectionIsEmptiedOnceThatIsAllowed) {
  load();
  matrix().selectCellAtRow(0, 1);
  matrix().deselectAllCells();
  EXPECT_EQ(matrix().selectedColumn(), 1);
  matrix().selectCellAtRow(0, -1);
  EXPECT_EQ(matrix().selectedColumn(), 1);

  matrix().setAllowsEmptySelection(true);
  matrix().deselectAllCells();
  EXPECT_EQ(matrix().selectedColumn(), -1);
  matrix().selectCellAtRow(0, 0);
  matrix().selectCellAtRow(0, -1);
  EXPECT_EQ(matrix().selectedColumn(), -1);
}

TEST_P(ShellConformance, RadioClickSendsTheCellsAction) {
  load();
  user().clickRadioCell(1);
  EXPECT_EQ(matrix().selectedColumn(), 1);
  user().clickRadioCell(0);
  EXPECT_EQ(matrix().selectedColumn(), 0);
  EXPECT_THAT(owner().sent, ElementsAre(ControlsOwner::Sent{"radioButtonFnB", &matrix()},
                                        ControlsOwner::Sent{"radioButtonF", &matrix()}));
}

TEST_P(ShellConformance, RadioClickOnTheSelectedCellSendsAgain) {
  load();
  matrix().selectCellAtRow(0, 0);
  user().clickRadioCell(0);
  user().clickRadioCell(0);
  EXPECT_EQ(matrix().selectedColumn(), 0);
  EXPECT_EQ(owner().sent.size(), 2u);
}

TEST_P(ShellConformance, RadioClickOutsideTheCellsOrDisabledDoesNothing) {
  load();
  for (const std::int64_t column : {-1, 2, 99})
    user().clickRadioCell(column);
  matrix().setEnabled(false);
  user().clickRadioCell(0);
  EXPECT_EQ(matrix().selectedColumn(), -1);
  EXPECT_THAT(owner().sent, IsEmpty());
  matrix().selectCellAtRow(0, 1);
  EXPECT_EQ(matrix().selectedColumn(), 1);
}

TEST_P(ShellConformance, TextFieldTakesAnyTextFromCode) {
  load();
  pageField().setFormatter(std::make_shared<NoX>());
  for (const char* text : {"3,5,9,", "xyz", "épais & <b>", ""}) {
    pageField().setStringValue(text);
    EXPECT_EQ(pageField().stringValue(), text);
  }
}

TEST_P(ShellConformance, TypingReplacesTheText) {
  load();
  pageField().setStringValue("old");
  user().type("5,é-9");
  EXPECT_EQ(pageField().stringValue(), "5,é-9");
  user().type("");
  EXPECT_EQ(pageField().stringValue(), "");
}

TEST_P(ShellConformance, RefusedKeystrokeIsDroppedAndTheNextOneTried) {
  load();
  pageField().setFormatter(std::make_shared<NoX>());
  user().type("x1xx2,x3x");
  EXPECT_EQ(pageField().stringValue(), "12,3");
}

TEST_P(ShellConformance, DisabledTextFieldIgnoresTheUserNotTheCode) {
  load();
  pageField().setStringValue("7");
  pageField().setEnabled(false);
  user().type("8");
  EXPECT_EQ(pageField().stringValue(), "7");
  pageField().setStringValue("9");
  EXPECT_EQ(pageField().stringValue(), "9");
}

TEST_P(ShellConformance, TabChangeByTheUserIsSent) {
  load();
  user().selectTab(2);
  user().selectTab(0);
  const ControlsOwner::Sent change = {"tabViewDidSelectTabViewItem", nullptr};
  EXPECT_THAT(owner().sent, ElementsAre(change, change));
}

TEST_P(ShellConformance, TabInFrontOrOutsideIsNotSent) {
  load();
  for (const std::int64_t index : {0, -1, 3, 99})
    user().selectTab(index);
  EXPECT_THAT(owner().sent, IsEmpty());
}

TEST_P(ShellConformance, RemovedTabIsGone) {
  load();
  tabs().removeTabViewItemAtIndex(1);
  EXPECT_THAT(tabLabels(), ElementsAre("Cover Mode", "Page Insert"));
  for (const std::int64_t index : {-1, 2})
    tabs().removeTabViewItemAtIndex(index);
  EXPECT_EQ(tabs().numberOfTabViewItems(), 2);
}

TEST_P(ShellConformance, RemovingAnotherTabKeepsTheOneInFront) {
  load();
  user().selectTab(2);
  tabs().removeTabViewItemAtIndex(1);
  user().selectTab(1);
  EXPECT_EQ(owner().sent.size(), 1u);  // the tab in front moved to index 1
}

TEST_P(ShellConformance, RemovingTheSelectedTabSelectsANeighbourSilently) {
  load();
  user().selectTab(2);
  tabs().removeTabViewItemAtIndex(2);
  EXPECT_EQ(owner().sent.size(), 1u);
  user().selectTab(1);
  EXPECT_EQ(owner().sent.size(), 1u);  // in front already
  user().selectTab(0);
  EXPECT_EQ(owner().sent.size(), 2u);
}

}  // namespace publishing
