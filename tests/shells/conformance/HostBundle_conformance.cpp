// SPDX-License-Identifier: Apache-2.0
// What a host hears of the user.
#include "tests/shells/conformance/Conformance.h"

namespace publishing {

using testing::Each;
using testing::SizeIs;

TEST_P(ShellConformance, HostHearsOfEachGestureAfterThePanel) {
  std::vector<std::size_t> actionsBefore;
  std::vector<std::string> names;
  bundle().setUserChanged([&](const std::string& outlet) {
    actionsBefore.push_back(owner().sent.size());
    names.push_back(outlet);
  });
  load();
  popUp("PiMediaType").addItemsWithTitles({"Plain", "Thick"});
  user().click("CmFrontOutside");
  EXPECT_THAT(actionsBefore, SizeIs(1));
  user().choose("PiMediaType", 1);
  EXPECT_THAT(actionsBefore, SizeIs(2));
  user().type("5");
  EXPECT_GE(actionsBefore.size(), 3U);
  EXPECT_THAT(actionsBefore, Each(0U));
  EXPECT_EQ(names.front(), "CmFrontOutside");
  EXPECT_EQ(names.back(), "PiPageNum");

  actionsBefore.clear();
  names.clear();
  user().click("PiCheckBox");
  user().clickRadioCell(1);
  user().clickRadioCell(1);
  EXPECT_THAT(actionsBefore, testing::ElementsAre(1, 2, 3));
  EXPECT_THAT(names,
              testing::ElementsAre("PiCheckBox", "CmFrontandBackMatrix", "CmFrontandBackMatrix"));
}

TEST_P(ShellConformance, HostHearsNothingOfChangesFromCode) {
  int changes = 0;
  bundle().setUserChanged([&](const std::string&) { ++changes; });
  load();
  box("CmFrontOutside").setState(1);
  matrix().setAllowsEmptySelection(true);
  matrix().selectCellAtRow(0, 1);
  matrix().deselectAllCells();
  PopUpButton& media = popUp("CmMediaType");
  media.addItemsWithTitles({"Plain", "Thick"});
  media.selectItemAtIndex(1);
  media.setItemEnabledAtIndex(1, false);
  media.removeAllItems();
  pageField().setStringValue("5");
  box("CmFrontOutside").setEnabled(false);
  EXPECT_EQ(changes, 0);
}

TEST_P(ShellConformance, HostHearsNothingOfGesturesThatDoNothing) {
  int changes = 0;
  bundle().setUserChanged([&](const std::string&) { ++changes; });
  load();
  popUp("CmMediaType").addItemsWithTitles({"Plain", "Thick"});
  popUp("CmMediaType").setItemEnabledAtIndex(1, false);
  user().choose("CmMediaType", 1);
  for (const char* name : {"CmCheckBox", "CmFrontOutside"}) {
    box(name).setEnabled(false);
    user().click(name);
  }
  matrix().setEnabled(false);
  user().clickRadioCell(0);
  pageField().setEnabled(false);
  user().type("5");
  EXPECT_EQ(changes, 0);
}

TEST_P(ShellConformance, AlertsHaveTheHostsDetailBelowTheMessage) {
  load();
  bundle().setAlertDetail("100 %s <b>");
  bundle().alertPanel().runAlertPanel("Title", "Message", "OK");
  bundle().setAlertDetail("");
  bundle().alertPanel().runAlertPanel("Title", "Message", "OK");
  EXPECT_THAT(alerts(), testing::ElementsAre(Alert{"Title", "Message\n\n100 %s <b>", "OK"},
                                             Alert{"Title", "Message", "OK"}));
}

TEST_P(ShellConformance, NotesAreNoGesturesAndLeaveTheTextAlone) {
  int changes = 0;
  bundle().setUserChanged([&](const auto&) { ++changes; });
  load();
  pageField().setStringValue("1");
  using Kind = FieldNote::Kind;
  for (const Kind kind : {Kind::Hint, Kind::Remark, Kind::Unfinished, Kind::Fault, Kind::Hint})
    bundle().setNote("PiPageNum", {kind, "100 %s <b> \xff"});
  bundle().setNote("Unknown", {Kind::Fault, "wrong"});
  bundle().setNote("CmCheckBox", {Kind::Fault, "wrong"});
  EXPECT_EQ(changes, 0);
  EXPECT_THAT(owner().sent, testing::IsEmpty());
  EXPECT_EQ(pageField().stringValue(), "1");
}

TEST_P(ShellConformance, RevealedTextIsNoGesture) {
  int changes = 0;
  bundle().setUserChanged([&](const std::string&) { ++changes; });
  load();
  pageField().setStringValue("5,8");
  bundle().revealText("PiPageNum", 2, 1);
  bundle().revealText("Unknown", 0, 1);
  EXPECT_EQ(changes, 0);
  EXPECT_THAT(owner().sent, testing::IsEmpty());
  EXPECT_EQ(pageField().stringValue(), "5,8");
}

}  // namespace publishing
