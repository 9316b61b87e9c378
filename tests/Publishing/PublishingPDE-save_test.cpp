// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kTypeARange = "Please type a page range.";
constexpr const char* kSpecifyPages = "Please enter your specified pages.";
constexpr const char* kBetween2 = "You can only enter page numbers between 2 and 511.";
constexpr const char* kBetween3 = "You can only enter page numbers between 3 and 511.";

class PublishingPDESave : public PanelTest {
 protected:
  PublishingPDESave() {
    usePPDText(smallPrinter());
    start();
  }

  // Turns Page Insert on with this list; the formatter is not asked.
  void insertBefore(const std::string& pages) {
    if (box("PiCheckBox").state() == 0) box("PiCheckBox").click();
    pageField().setStringValue(pages);
  }

  void renameFirstCoverMedium(const std::string& keyword) {
    fillField(ppdFindOption(ppd.get(), "CoverMediaType")->choices[0].choice, keyword);
  }

  bool save() { return panel.saveValuesAndReturnError(); }
};

TEST_F(PublishingPDESave, BothFeaturesOff) {
  set({{"VtCoverModeState", "On"},
       {"VtCoverModeValue", "1"},
       {"VtCovermodeRadioButtonState", "1"},
       {"VtCmIndex", "2"},
       {"VtUnspecified", "1"},
       {"VtPageinsertState", "On"},
       {"VtPageinsertValue", "1"},
       {"VtPiIndex", "1"},
       {"VtPageinsertNums", "3,5,"}});
  EXPECT_TRUE(save());
  EXPECT_THAT(host->settings.values(),
              ElementsAre(Pair("VtCoverModeState", "Off"), Pair("VtPageinsertNums", "3,5,"),
                          Pair("VtPageinsertState", "Off"), Pair("VtUnspecified", "1")));
  EXPECT_THAT(host->pushes, IsEmpty());
  EXPECT_THAT(bundle->alerts, IsEmpty());
}

TEST_F(PublishingPDESave, CoverModeStoresItsValuesAndPushesItsMedia) {
  setTwoSided(true);
  box("CmCheckBox").click();
  matrix().click(1);
  box("CmFrontInside").click();
  box("CmBackInside").click();
  popUp("CmMediaType").choose(2);
  EXPECT_TRUE(save());
  EXPECT_THAT(host->settings.values(),
              ElementsAre(Pair("VtCmIndex", "2"), Pair("VtCoverModeState", "On"),
                          Pair("VtCoverModeValue", "10"), Pair("VtCovermodeRadioButtonState", "2"),
                          Pair("VtPageinsertState", "Off"), Pair("VtUnspecified", "1")));
  EXPECT_THAT(host->pushes, ElementsAre(Pair("CoverMediaType", "Lower")));
}

TEST_F(PublishingPDESave, OnlyTheFirstCoverMediumLeavesItToThePrinter) {
  struct Case {
    std::vector<Choice> media;
    const char* unspecified;
  };
  for (const auto& [media, unspecified] :
       {Case{{{"PrnDef", "a"}, {"Plain", "b"}}, "1"}, Case{{{"XPrnDefault", "a"}}, "1"},
        Case{{{"Plain", "a"}, {"PrnDef", "b"}}, "0"}, Case{{{"prndef", "a"}}, "0"}}) {
    usePPDText(mediaLines("CoverMediaType", media));
    PublishingPDE fresh(host, bundle);
    fresh.panelView();
    box("CmCheckBox").click();
    EXPECT_TRUE(fresh.saveValuesAndReturnError());
    EXPECT_EQ(setting("VtUnspecified"), unspecified) << media.front().keyword;
  }
}

// libcups itself refuses keywords that are not ASCII.
TEST_F(PublishingPDESave, PushedKeywordIsReadInThePPDsEncoding) {
  struct Case {
    const char* encoding;
    std::size_t pushes;
  };
  for (const auto& [encoding, pushes] :
       {Case{"UTF-8", 1}, Case{"UTF-8-SIG", 1}, Case{"utf-8", 0}, Case{"ISOLatin1", 0},
        Case{"UTF-", 0}, Case{"", 0}, Case{nullptr, 0}}) {
    usePPDText(mediaLines("CoverMediaType", {{"Large", "Large"}}));
    renameFirstCoverMedium("Größe");
    setEncoding(encoding);
    host->pushes.clear();
    PublishingPDE fresh(host, bundle);
    fresh.panelView();
    box("CmCheckBox").click();
    EXPECT_TRUE(fresh.saveValuesAndReturnError());
    ASSERT_EQ(host->pushes.size(), pushes) << (encoding != nullptr ? encoding : "none");
    if (pushes == 1) {
      EXPECT_THAT(host->pushes, ElementsAre(Pair("CoverMediaType", "Größe")));
    }
  }
}

TEST_F(PublishingPDESave, KeywordThatIsNotUTF8IsNotPushed) {
  usePPDText(mediaLines("CoverMediaType", {{"Large", "Large"}}));
  renameFirstCoverMedium("Gr\xf6\xdf");
  PublishingPDE fresh(host, bundle);
  fresh.panelView();
  box("CmCheckBox").click();
  EXPECT_TRUE(fresh.saveValuesAndReturnError());
  EXPECT_THAT(host->pushes, IsEmpty());
  EXPECT_EQ(setting("VtCoverModeState"), "On");
}

TEST_F(PublishingPDESave, PopUpIndexIsTheChoiceIndexEvenAfterASkippedText) {
  usePPDText(mediaLines("CoverMediaType",
                        {{"First", "One"}, {"Second", "Gr\xf6\xdf"}, {"Third", "Three"}}));
  PublishingPDE fresh(host, bundle);
  fresh.panelView();
  ASSERT_THAT(titles("CmMediaType"), ElementsAre("One", "Three"));
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(1);
  EXPECT_TRUE(fresh.saveValuesAndReturnError());
  EXPECT_THAT(host->pushes, ElementsAre(Pair("CoverMediaType", "Second")));
}

TEST_F(PublishingPDESave, IndexOfAnotherPrinterPushesNothing) {
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(2);
  usePPDText(mediaLines("CoverMediaType", {{"Only", "Only"}}));
  EXPECT_TRUE(save());
  EXPECT_THAT(host->pushes, IsEmpty());
  EXPECT_EQ(setting("VtCmIndex"), "2");
  EXPECT_EQ(setting("VtUnspecified"), "0");
}

TEST_F(PublishingPDESave, NothingSelectedBecomesTheFirstChoice) {
  set({{"VtCoverModeState", "On"}, {"VtCoverModeValue", "1"}, {"VtCmIndex", "77"}});
  restore();
  ASSERT_EQ(popUp("CmMediaType").indexOfSelectedItem(), -1);
  EXPECT_TRUE(save());
  EXPECT_EQ(setting("VtCmIndex"), "0");
  EXPECT_THAT(host->pushes, ElementsAre(Pair("CoverMediaType", "PrnDef")));
}

TEST_F(PublishingPDESave, EmptyPageListKeepsPageInsertOnAndAnswersNo) {
  insertBefore("");
  EXPECT_FALSE(save());
  EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(kTypeARange)));
  EXPECT_EQ(setting("VtPageinsertState"), "On");
  EXPECT_EQ(setting("VtPageinsertValue"), "0");
  EXPECT_EQ(setting("VtPiIndex"), "0");
  EXPECT_THAT(host->pushes, ElementsAre(Pair("PageMediaType", "PrnDef")));
}

TEST_F(PublishingPDESave, PageListMustBeginWithADigit) {
  for (const char* pages : {" 5", "a", ",5", "-5", "٣", "\xff"}) {
    host->settings.setValue("VtPageinsertState", std::nullopt);
    set({{"VtPageinsertNums", "3,"}});
    bundle->alerts.clear();
    host->pushes.clear();
    insertBefore(pages);
    EXPECT_FALSE(save()) << pages;
    EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(kSpecifyPages))) << pages;
    EXPECT_EQ(setting("VtPageinsertState"), "On") << pages;
    EXPECT_EQ(setting("VtPageinsertNums"), "3,") << pages;
    EXPECT_THAT(host->pushes, ElementsAre(Pair("PageMediaType", "PrnDef"))) << pages;
  }
}

TEST_F(PublishingPDESave, MissingPageFieldCountsAsNoDigit) {
  bundle->hasDescription = false;
  PublishingPDE blind(host, bundle);
  set({{"VtPageinsertState", "On"}});
  blind.restoreValuesAndReturnError();
  EXPECT_FALSE(blind.saveValuesAndReturnError());
  EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(kSpecifyPages)));
}

TEST_F(PublishingPDESave, AcceptedPageListIsStoredSortedWithTrailingComma) {
  setTwoSided(true);
  panel.willShow();
  insertBefore("9,3,5,3");
  box("PiPrintOnFront").click();
  box("PiPrintOnBack").click();
  popUp("PiMediaType").choose(1);
  EXPECT_TRUE(save());
  EXPECT_THAT(host->settings.values(),
              ElementsAre(Pair("VtCoverModeState", "Off"), Pair("VtPageinsertNums", "3,5,9,"),
                          Pair("VtPageinsertState", "On"), Pair("VtPageinsertValue", "3"),
                          Pair("VtPiIndex", "1")));
  EXPECT_THAT(host->pushes, ElementsAre(Pair("PageMediaType", "Labels")));
  EXPECT_THAT(bundle->alerts, IsEmpty());
  EXPECT_EQ(panel.state().pageNumValue, "9,3,5,3");
  EXPECT_EQ(pageField().stringValue(), "9,3,5,3");
}

TEST_F(PublishingPDESave, MorePagesThanTheLimitFitWhenRangesGiveThem) {
  insertBefore("2-10,12-20");
  EXPECT_TRUE(save());
  EXPECT_EQ(setting("VtPageinsertNums"), "2,3,4,5,6,7,8,9,10,12,13,14,15,16,17,18,19,20,");
}

TEST_F(PublishingPDESave, RefusedPageListStoresNothingOfPageInsert) {
  struct Case {
    const char* pages;
    const char* message;
  };
  for (const auto& [pages, message] :
       {Case{"5x", kTypeARange}, Case{"5,x", kTypeARange}, Case{"3-4-5", kTypeARange},
        Case{"1", kBetween2}, Case{"512", kBetween2}, Case{"5,99999999999999999999", kBetween2},
        Case{"2-12", "You can only insert up to 10 pages."},
        Case{"5-5",
             "The ending page number of range should be bigger than the beginning page "
             "number."}}) {
    bundle->alerts.clear();
    set({{"VtPageinsertNums", "7,"}, {"VtPiIndex", "2"}});
    insertBefore(pages);
    EXPECT_FALSE(save()) << pages;
    EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(message))) << pages;
    EXPECT_THAT(host->settings.values(),
                ElementsAre(Pair("VtCoverModeState", "Off"), Pair("VtPageinsertNums", "7,"),
                            Pair("VtPiIndex", "2")))
        << pages;
    EXPECT_THAT(host->pushes, IsEmpty()) << pages;
  }
}

TEST_F(PublishingPDESave, RefusedPageListNeverUndoesTheCover) {
  box("CmCheckBox").click();
  insertBefore("5-5");
  EXPECT_FALSE(save());
  EXPECT_EQ(setting("VtCoverModeState"), "On");
  EXPECT_EQ(setting("VtCoverModeValue"), "16");
  EXPECT_THAT(host->pushes, ElementsAre(Pair("CoverMediaType", "PrnDef")));
}

TEST_F(PublishingPDESave, MessageNames3ForTwoSidedJobsWithBothFrontSides) {
  struct Case {
    bool twoSided;
    const char* value;
    const char* message;
  };
  for (const auto& [twoSided, value, message] :
       {Case{true, "3", kBetween3}, Case{true, "15", kBetween3}, Case{true, "1", kBetween2}}) {
    bundle->alerts.clear();
    setTwoSided(twoSided);
    set({{"VtCoverModeState", "On"},
         {"VtCoverModeValue", value},
         {"VtCovermodeRadioButtonState", "2"}});
    restore();
    insertBefore("512");
    EXPECT_FALSE(save());
    EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(message))) << value;
  }
}

// The inside box of a one-sided job is cleared; one that turns one-sided later keeps it until then.
TEST_F(PublishingPDESave, OneSidedJobWithBothFrontSidesIsToldOf2AndRefused2) {
  setTwoSided(true);
  box("CmCheckBox").click();
  box("CmFrontOutside").click();
  box("CmFrontInside").click();
  insertBefore("2");
  setTwoSided(false);
  EXPECT_FALSE(save());
  EXPECT_EQ(setting("VtCoverModeValue"), "3");
  EXPECT_THAT(bundle->alerts, ElementsAre(pageAlert(kBetween2)));
}

TEST_F(PublishingPDESave, FailedDuplexQueryCountsAsOneSided) {
  setTwoSided(true);
  box("CmCheckBox").click();
  box("CmFrontOutside").click();
  box("CmFrontInside").click();
  insertBefore("2-4");
  EXPECT_FALSE(save());
  host->settings.setDuplex(std::nullopt);
  EXPECT_TRUE(save());
  EXPECT_EQ(setting("VtPageinsertNums"), "2,3,4,");
}

TEST_F(PublishingPDESave, AlertIsLocalized) {
  bundle->translations = {{"Page Number Error", "Seitenfehler"},
                          {"Please type a page range.", "Bitte Seiten eingeben."},
                          {"OK", "Gut"}};
  insertBefore("");
  EXPECT_FALSE(save());
  EXPECT_THAT(bundle->alerts,
              ElementsAre(TestBundle::Alert{"Seitenfehler", "Bitte Seiten eingeben.", "Gut"}));
}

TEST_F(PublishingPDESave, StoredStatesAreNotLocalized) {
  bundle->translations = {{"On", "Ein"}, {"Off", "Aus"}};
  EXPECT_TRUE(save());
  EXPECT_EQ(setting("VtCoverModeState"), "Off");
  EXPECT_EQ(setting("VtPageinsertState"), "Off");
  box("CmCheckBox").click();
  insertBefore("5");
  EXPECT_TRUE(save());
  EXPECT_EQ(setting("VtCoverModeState"), "On");
  EXPECT_EQ(setting("VtPageinsertState"), "On");
}

TEST_F(PublishingPDESave, NextRestoreShowsTheStoredForm) {
  insertBefore("9,3-4");
  EXPECT_TRUE(save());
  restore();
  EXPECT_EQ(pageField().stringValue(), "3,4,9,");
}

}  // namespace
}  // namespace publishing::test
