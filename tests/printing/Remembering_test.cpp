// SPDX-License-Identifier: Apache-2.0
#include "printing/Remembering.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;

using Values = StoredSettings::Values;

// What the panel saves for leather covers and two lists of pages.
const Values kSaved = {{kCoverModeState, "On"},
                       {kCoverModeValue, "1"},
                       {kCmIndex, "5"},
                       {kCoverMediaType, "Leather"},
                       {kPageinsertState, "On"},
                       {kPageinsertValue, "0"},
                       {kPiIndex, "2"},
                       {kPageMediaType, "Recycled"},
                       {kPageinsertNums, "5,6,9,"},
                       {"sides", "two-sided-long-edge"}};

class RememberingTest : public testing::Test {
 protected:
  // The printer with this PPD; always of the same name.
  Printer printer(const std::string& ppd) { return Printer::openPPD(folder.file("a.ppd", ppd)); }
  Printer printer() { return printer(contentsOfFile(kSamplePPD)); }

  TemporaryFolder folder;
  const StoredSettings store{folder / "settings"};
};

TEST_F(RememberingTest, MediaAreRememberedByKeywordAndText) {
  remember(store, printer(), kSaved);
  const Values stored = store.load(printer().name()).values;
  EXPECT_THAT(stored, Contains(Pair(kCoverMediaType, "Leather")));
  EXPECT_THAT(stored, Contains(Pair("CoverMediaTypeText", HasSubstr("Leather Grain"))));
  EXPECT_THAT(stored, Contains(Pair("PageMediaTypeText", "Recycled Paper")));
  EXPECT_THAT(stored, Contains(Pair(kPageinsertNums, "5-6,9")));
  EXPECT_THAT(stored, Not(Contains(Key("sides"))));

  const Remembered recalled = recall(store, printer());
  EXPECT_THAT(recalled.values, Contains(Pair(kCmIndex, "5")));
  EXPECT_THAT(recalled.values, Not(Contains(Key("CoverMediaTypeText"))));
  EXPECT_THAT(recalled.losses, IsEmpty());
  EXPECT_THAT(recalled.warnings, IsEmpty());
}

TEST_F(RememberingTest, MediumKeepsItsKeywordWhenThePPDGetsAnotherOneInFront) {
  remember(store, printer(), kSaved);
  const Remembered recalled =
      recall(store, printer(changedPPD("*CoverMediaType Plain/Plain Paper:",
                                       "*CoverMediaType New/New Paper: \"\"\n"
                                       "*CoverMediaType Plain/Plain Paper:")));
  EXPECT_THAT(recalled.values, Contains(Pair(kCoverMediaType, "Leather")));
  EXPECT_THAT(recalled.values, Contains(Pair(kCmIndex, "6")));
}

TEST_F(RememberingTest, MediumWithAnotherKeywordIsFoundByItsText) {
  remember(store, printer(), kSaved);
  const Remembered recalled =
      recall(store, printer(changedPPD("CoverMediaType Leather/", "CoverMediaType Hide/")));
  EXPECT_THAT(recalled.values, Contains(Pair(kCoverMediaType, "Hide")));
  EXPECT_THAT(recalled.values, Contains(Pair(kCmIndex, "5")));
  EXPECT_THAT(recalled.losses, IsEmpty());
}

TEST_F(RememberingTest, MediumThatIsGoneIsSaidAndItsFeatureIsOff) {
  remember(store, printer(), kSaved);
  const Remembered recalled = recall(
      store,
      printer(changedPPD("CoverMediaType Leather/Leather Grain", "CoverMediaType Hide/Hide")));
  EXPECT_THAT(recalled.losses, ElementsAre(AllOf(HasSubstr("Leather Grain"), HasSubstr("covers"))));
  EXPECT_THAT(recalled.values, Contains(Pair(kCoverModeState, "Off")));
  EXPECT_THAT(recalled.values, Not(Contains(Key(kCmIndex))));
  EXPECT_THAT(recalled.values, Not(Contains(Key(kCoverMediaType))));
  EXPECT_THAT(recalled.values, Contains(Pair(kPageinsertState, "On")));
  EXPECT_THAT(recalled.values, Contains(Pair(kPiIndex, "2")));
}

TEST_F(RememberingTest, IndexWithoutAKeywordIsNotTrusted) {
  store.store(printer().name(), {{kCoverModeState, "On"}, {kCmIndex, "5"}});
  const Remembered recalled = recall(store, printer());
  EXPECT_THAT(recalled.losses, ElementsAre(HasSubstr("no longer offered")));
  EXPECT_THAT(recalled.values, ElementsAre(Pair(kCoverModeState, "Off")));
}

TEST_F(RememberingTest, FeatureThatIsOffHasNoMedium) {
  Values off = kSaved;
  off[kCoverModeState] = "Off";
  remember(store, printer(), off);
  EXPECT_THAT(store.load(printer().name()).values, Not(Contains(Key(kCoverMediaType))));
  // As settings were stored before.
  off.erase("sides");
  store.store(printer().name(), off);
  const Remembered recalled = recall(store, printer());
  EXPECT_THAT(recalled.values, Not(Contains(Key(kCoverMediaType))));
  EXPECT_THAT(recalled.values, Not(Contains(Key(kCmIndex))));
  EXPECT_THAT(recalled.values, Contains(Pair(kPageMediaType, "Recycled")));
}

TEST_F(RememberingTest, ListThatPrintedOnceComesBackAsRanges) {
  Values saved = kSaved;
  saved[kPageinsertNums] = "5,6,7,8,9,10,11,12,13,14,20,21,22,23,24,25,26,27,28,29,";
  remember(store, printer(), saved);
  EXPECT_THAT(recall(store, printer()).values, Contains(Pair(kPageinsertNums, "5-14,20-29")));
  saved.erase("sides");
  store.store(printer().name(), saved);
  EXPECT_THAT(recall(store, printer()).values, Contains(Pair(kPageinsertNums, "5-14,20-29")));
}

// 280 bytes are more than a job option may have, but not more than a page list may.
TEST_F(RememberingTest, LongListsAreRemembered) {
  Values saved = kSaved;
  std::string pages;
  for (int start = 100; start < 170; start += 11) {
    for (int page = start; page < start + 10; ++page)
      pages += std::to_string(page) + ",";
  }
  ASSERT_GT(pages.size(), 255U);
  saved[kPageinsertNums] = pages;
  remember(store, printer(), saved);
  EXPECT_THAT(
      recall(store, printer()).values,
      Contains(Pair(kPageinsertNums, "100-109,111-120,122-131,133-142,144-153,155-164,166-175")));
  saved.erase("sides");
  store.store(printer().name(), saved);
  EXPECT_THAT(store.load(printer().name()).values, Contains(Pair(kPageinsertNums, pages)));
}

TEST_F(RememberingTest, FeatureThatIsKeptStaysAsItWas) {
  remember(store, printer(), kSaved);
  remember(store, printer(), {{kCoverModeState, "Off"}, {kPageinsertState, "Off"}}, {kCoverMode});
  const Values stored = store.load(printer().name()).values;
  EXPECT_THAT(stored, Contains(Pair(kCoverModeState, "On")));
  EXPECT_THAT(stored, Contains(Pair(kCoverMediaType, "Leather")));
  EXPECT_THAT(stored, Contains(Key("CoverMediaTypeText")));
  EXPECT_THAT(stored, Contains(Pair(kPageinsertState, "Off")));
  EXPECT_THAT(stored, Not(Contains(Key(kPageMediaType))));
}

TEST_F(RememberingTest, WarningsOfTheStoreArePassedOn) {
  remember(store, printer(), kSaved);
  const std::string path = store.fileOf(printer().name());
  std::ofstream(path, std::ios::app) << "\nVtNew=1\n";
  EXPECT_THAT(recall(store, printer()).warnings, ElementsAre(HasSubstr("VtNew")));
}

}  // namespace
}  // namespace publishing
