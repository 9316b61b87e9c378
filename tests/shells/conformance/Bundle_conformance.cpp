// SPDX-License-Identifier: Apache-2.0
// Texts, alerts, help, and the binding of the interface description by name.
#include "tests/shells/conformance/Conformance.h"

namespace publishing {

using testing::ElementsAre;
using testing::IsEmpty;

ShellConformance::ShellConformance()
    : stage_(GetParam().makeStage(
          [this](const std::string& title, const std::string& message, const std::string& button) {
            alerts_.push_back({title, message, button});
          })) {}

std::vector<std::string> ShellConformance::tabLabels() {
  std::vector<std::string> labels;
  for (std::int64_t index = 0; index < tabs().numberOfTabViewItems(); ++index) {
    labels.push_back(tabs().tabViewItemLabelAtIndex(index));
  }
  return labels;
}

std::vector<std::string> ShellConformance::itemTitles(PopUpButton& popUp) {
  std::vector<std::string> titles;
  for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
    titles.push_back(popUp.itemTitleAtIndex(index));
  }
  return titles;
}

TEST_P(ShellConformance, UnknownTextIsItsOwnTranslation) {
  EXPECT_EQ(bundle().localizedString("no text of the panel"), "no text of the panel");
  EXPECT_EQ(bundle().localizedString(""), "");
}

TEST_P(ShellConformance, InterfaceConnectsEveryOutletThenAwakes) {
  load();
  EXPECT_TRUE(owner().isEverythingConnected());
  EXPECT_EQ(owner().awakenings, 1);
  EXPECT_TRUE(owner().wasConnectedOnAwakening);
  EXPECT_THAT(owner().sent, IsEmpty());
}

TEST_P(ShellConformance, UnknownInterfaceLoadsNothing) {
  EXPECT_FALSE(bundle().loadInterface("Binding", owner()));
  EXPECT_FALSE(owner().isAnythingConnected());
  EXPECT_EQ(owner().awakenings, 0);
}

TEST_P(ShellConformance, NameUnknownToTheOwnerConnectsNothing) {
  for (const char* name :
       {"pdeView", "tabView", "CmCheckBox", "CmFrontandBackMatrix", "PiMediaType", "PiPageNum",
        "changePiEnableState", "radioButtonFnB", "tabViewDidSelectTabViewItem"}) {
    ControlsOwner forgetful;
    forgetful.forget(name);
    EXPECT_FALSE(bundle().loadInterface("Publishing", forgetful)) << name;
    EXPECT_FALSE(forgetful.isAnythingConnected()) << name;
    EXPECT_EQ(forgetful.awakenings, 0) << name;
  }
}

TEST_P(ShellConformance, NameOfAnotherKindConnectsNothing) {
  for (const char* name :
       {"pdeView", "tabView", "CmCheckBox", "CmFrontandBackMatrix", "PiMediaType", "PiPageNum",
        "changePiEnableState", "radioButtonFnB", "tabViewDidSelectTabViewItem"}) {
    ControlsOwner confused;
    confused.confuse(name);
    EXPECT_FALSE(bundle().loadInterface("Publishing", confused)) << name;
    EXPECT_FALSE(confused.isAnythingConnected()) << name;
    EXPECT_EQ(confused.awakenings, 0) << name;
  }
}

TEST_P(ShellConformance, ControlsLiveOnWhenTheInterfaceIsLoadedAgain) {
  load();
  CheckBox& first = box("CmCheckBox");
  first.setState(1);
  load();
  EXPECT_NE(&box("CmCheckBox"), &first);
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(first.state(), 1);
  EXPECT_EQ(owner().awakenings, 2);
}

TEST_P(ShellConformance, LoadedInterfaceIsBlank) {
  load();
  for (auto& [name, outlet] : owner().checkBoxes) {
    EXPECT_EQ(outlet->state(), 0) << name;
    EXPECT_TRUE(outlet->isEnabled()) << name;
  }
  for (auto& [name, outlet] : owner().popUps) {
    EXPECT_EQ(outlet->numberOfItems(), 0) << name;
    EXPECT_EQ(outlet->indexOfSelectedItem(), -1) << name;
    EXPECT_TRUE(outlet->isEnabled()) << name;
  }
  EXPECT_EQ(matrix().selectedColumn(), -1);
  EXPECT_TRUE(matrix().isEnabled());
  EXPECT_EQ(pageField().stringValue(), "");
  EXPECT_TRUE(pageField().isEnabled());
  EXPECT_THAT(tabLabels(), ElementsAre("Cover Mode", "Transparency Interleaving", "Page Insert"));
}

TEST_P(ShellConformance, AlertShowsItsTextsAsTheyStandAndReturns) {
  load();
  bundle().alertPanel().runAlertPanel("100 %s <b>", "1 & 2 _ 3\n%n", "Größe");
  EXPECT_THAT(alerts(), ElementsAre(Alert{"100 %s <b>", "1 & 2 _ 3\n%n", "Größe"}));
}

TEST_P(ShellConformance, UnknownHelpBookReportsAStatus) {
  EXPECT_NE(bundle().gotoHelpPage("No Such Book"), 0);
}

}  // namespace publishing
