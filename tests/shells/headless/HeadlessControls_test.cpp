// SPDX-License-Identifier: Apache-2.0
// What the headless shell adds to the promises that all shells keep.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shells/headless/HeadlessBundle.h"
#include "tests/support/HeadlessPrintSettings.h"
#include "tests/support/HeadlessStage.h"

namespace publishing {
namespace {

// Shows every text with a star after it.
class Stars final : public Formatter {
 public:
  bool isPartialStringValid(const std::string& partialString,
                            std::string& newEditingString) const override {
    newEditingString.clear();
    for (const char letter : partialString) {
      if (letter != '*') newEditingString += letter;
    }
    newEditingString += '*';
    return true;
  }
};

TEST(HeadlessTextField, ShowsTheFormattersText) {
  HeadlessTextField field;
  field.setFormatter(std::make_shared<Stars>());
  field.type("ab");
  EXPECT_EQ(field.stringValue(), "ab*");
}

TEST(HeadlessTextField, TakesCharactersThatAreNotUTF8) {
  HeadlessTextField field;
  field.type("1\xff\x80\xc3");
  EXPECT_EQ(field.stringValue(), "1\xff\x80\xc3");
}

TEST(HeadlessTabView, LastTabLeavesNoneSelected) {
  HeadlessTabView tabs;
  tabs.setLabels({"One"});
  tabs.removeTabViewItemAtIndex(0);
  EXPECT_EQ(tabs.selectedIndex(), -1);
}

TEST(HeadlessTabView, RemovingAnEarlierTabKeepsTheOneInFront) {
  HeadlessTabView tabs;
  tabs.setLabels({"One", "Two", "Three"});
  tabs.select(1);
  tabs.removeTabViewItemAtIndex(0);
  EXPECT_EQ(tabs.selectedIndex(), 0);
  EXPECT_EQ(tabs.tabViewItemLabelAtIndex(0), "Two");
}

TEST(HeadlessInterface, KnowsItsControlsByNameAndKind) {
  HeadlessInterface interface;
  EXPECT_NE(interface.checkBox("CmCheckBox"), nullptr);
  EXPECT_EQ(interface.checkBox("CmMediaType"), nullptr);
  EXPECT_EQ(interface.popUpButton("Nope"), nullptr);
  EXPECT_EQ(interface.radioMatrix("PiPageNum"), nullptr);
  EXPECT_EQ(interface.textField("CmFrontandBackMatrix"), nullptr);
}

TEST(HeadlessBundle, HasNoInterfaceBeforeTheFirstLoad) {
  const HeadlessBundle bundle([](const auto&, const auto&, const auto&) {});
  EXPECT_EQ(bundle.interface(), nullptr);
}

TEST(HeadlessBundle, HasNoHelpViewer) {
  HeadlessBundle bundle([](const auto&, const auto&, const auto&) {});
  EXPECT_FALSE(bundle.registerHelpBook());
  EXPECT_NE(bundle.gotoHelpPage("Publishing Help"), 0);
}

TEST(HeadlessStage, GesturesBeforeTheInterfaceIsLoadedDoNothing) {
  HeadlessStage stage([](const auto&, const auto&, const auto&) {});
  stage.click("CmCheckBox");
  stage.clickRadioCell(1);
  stage.choose("CmMediaType", 0);
  stage.type("5");
  stage.selectTab(1);
  EXPECT_EQ(dynamic_cast<HeadlessBundle&>(*stage.bundle()).interface(), nullptr);
}

TEST(HeadlessPrintSettings, QueriesFailWhenToldTo) {
  HeadlessPrintSettings settings;
  settings.setDuplex(std::nullopt);
  settings.setCopyFails(true);
  EXPECT_EQ(settings.getDuplex(), std::nullopt);
  EXPECT_EQ(settings.copyAsDictionary(), std::nullopt);
}

}  // namespace
}  // namespace publishing
