// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/Preset.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/Remembering.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Not;
using ::testing::Pair;

using Values = StoredSettings::Values;

// What the panel saves for leather covers and a list of pages.
const Values kSaved = {{kCoverModeState, "On"},
                       {kCoverModeValue, "9"},
                       {kCovermodeRadioButtonState, "2"},
                       {kCmIndex, "5"},
                       {kUnspecifed, "1"},
                       {kCoverMediaType, "Leather"},
                       {kPageinsertState, "On"},
                       {kPageinsertValue, "2"},
                       {kPiIndex, "2"},
                       {kPageMediaType, "Recycled"},
                       {kPageinsertNums, "5,6,9,"},
                       {"sides", "two-sided-long-edge"}};

class PresetTest : public testing::Test {
 protected:
  Printer printer(const std::string& ppd) { return Printer::openPPD(folder.file("a.ppd", ppd)); }
  Printer printer() { return printer(contentsOfFile(kSamplePPD)); }
  Preset saved() { return presetOf("Report", toRemember(printer(), kSaved)); }

  TemporaryFolder folder;
};

TEST_F(PresetTest, HoldsWhatTheChoicesMean) {
  const Preset preset = saved();
  EXPECT_EQ(preset.name, "Report");
  EXPECT_EQ(preset.cover, "front-back");
  EXPECT_EQ(preset.coverMedium.keyword, "Leather");
  EXPECT_THAT(preset.coverMedium.text, HasSubstr("Leather Grain"));
  EXPECT_THAT(preset.coverSides, ElementsAre("front-outside", "back-inside"));
  EXPECT_EQ(preset.insert, "5-6,9");
  EXPECT_EQ(preset.insertMedium, (Preset::Medium{"Recycled", "Recycled Paper"}));
  EXPECT_THAT(preset.insertSides, ElementsAre("back"));
}

TEST_F(PresetTest, GivesThePrinterItWasMadeOnTheSameSettings) {
  const Remembered fitted = fittedTo(printer(), valuesOf(saved()), SettingsFrom::Preset);
  Values expected = kSaved;
  expected[kPageinsertNums] = "5-6,9";
  expected.erase("sides");
  expected.erase(kUnspecifed);  // the panel derives it
  EXPECT_EQ(fitted.values, expected);
  EXPECT_THAT(fitted.losses, IsEmpty());
}

TEST_F(PresetTest, CoversWithoutAPrintedSideStayCovers) {
  for (const auto& [radio, value] : {std::pair("1", "16"), std::pair("2", "32")}) {
    Values values = kSaved;
    values[kCovermodeRadioButtonState] = radio;
    values[kCoverModeValue] = value;
    const Preset preset = presetOf("x", toRemember(printer(), values));
    EXPECT_THAT(preset.coverSides, IsEmpty());
    EXPECT_THAT(valuesOf(preset), Contains(Pair(kCoverModeValue, value)));
    EXPECT_THAT(valuesOf(preset), Contains(Pair(kCovermodeRadioButtonState, radio)));
  }
}

TEST_F(PresetTest, FeatureThatIsOffLeavesNothing) {
  const Values off = {{kCoverModeState, "Off"},
                      {kCoverMediaType, "Leather"},
                      {kPageinsertState, "Off"},
                      {kPageinsertNums, "5,"},
                      {kPageMediaType, "Recycled"}};
  const Preset preset = presetOf("Plain", toRemember(printer(), off));
  EXPECT_EQ(preset, (Preset{.name = "Plain"}));
  EXPECT_THAT(valuesOf(preset),
              ElementsAre(Pair(kCoverModeState, "Off"), Pair(kPageinsertState, "Off")));
}

// The same preset on printers with other media.
TEST_F(PresetTest, FitsItselfToOtherPrinters) {
  const struct {
    const char* what;
    std::string ppd;
    const char* cover;  // keyword; empty: covers are off and it is said
  } printers[] = {
      {"one more medium in front",
       changedPPD("*CoverMediaType Plain/Plain Paper:",
                  "*CoverMediaType New/New Paper: \"\"\n*CoverMediaType Plain/Plain Paper:"),
       "Leather"},
      {"another keyword for the same text",
       changedPPD("CoverMediaType Leather/", "CoverMediaType Hide/"), "Hide"},
      {"another text for the same keyword",
       changedPPD("CoverMediaType Leather/Leather Grain", "CoverMediaType Leather/Cuir"),
       "Leather"},
      {"no such medium",
       changedPPD("CoverMediaType Leather/Leather Grain", "CoverMediaType Hide/Hide"), ""},
      {"no covers at all", changedPPD("CoverMediaType", "OtherMediaType"), ""},
  };
  const Preset preset = saved();
  for (const auto& [what, ppd, cover] : printers) {
    const Remembered fitted = fittedTo(printer(ppd), valuesOf(preset), SettingsFrom::Preset);
    if (*cover != '\0') {
      EXPECT_THAT(fitted.values, Contains(Pair(kCoverMediaType, cover))) << what;
      EXPECT_THAT(fitted.losses, IsEmpty()) << what;
    } else {
      EXPECT_THAT(fitted.values, Contains(Pair(kCoverModeState, "Off"))) << what;
      EXPECT_THAT(fitted.values, Not(Contains(Key(kCoverMediaType)))) << what;
      EXPECT_THAT(fitted.losses, ElementsAre(AllOf(HasSubstr("Leather Grain"),
                                                   HasSubstr("is not offered for covers"))))
          << what;
    }
    EXPECT_THAT(fitted.values, Contains(Pair(kPageMediaType, "Recycled"))) << what;
  }
}

TEST_F(PresetTest, SidesThatLieDownNeedTwoSidedPrinting) {
  Preset preset = saved();
  EXPECT_THAT(sidesThatNeedTwoSided(preset), ElementsAre("back"));
  preset.coverSides = {"front-outside", "front-inside", "back-outside", "back-inside"};
  preset.insertSides = {"front"};
  EXPECT_THAT(sidesThatNeedTwoSided(preset), ElementsAre("front-inside", "back-outside"));
}

TEST(PresetName, IsTextInOneLine) {
  for (const std::string name : {"Report", "Zoë & Søn", "A4/Letter", "..", ".", "年次報告", "x"}) {
    EXPECT_EQ(faultOfPresetName(name), std::nullopt) << name;
  }
  EXPECT_EQ(faultOfPresetName(std::string(100, 'x')), std::nullopt);
  const std::pair<std::string, const char*> bad[] = {
      {"", "needs a name"},
      {" ", "begins or ends with a space"},
      {" Report", "begins or ends with a space"},
      {"Report\t", "cannot be shown"},
      {"two\nlines", "cannot be shown"},
      {std::string("a\0b", 3), "not valid UTF-8"},
      {"\x1B[2J", "cannot be shown"},
      {"evil \u202E name", "cannot be shown"},
      {"\xFF", "not valid UTF-8"},
      {std::string(101, 'x'), "longer than 100"},
      {std::string(100000, 'x'), "longer than 100"},
  };
  for (const auto& [name, fault] : bad)
    EXPECT_THAT(faultOfPresetName(name).value_or(""), HasSubstr(fault)) << name;
}

TEST(PresetName, CountsInAnyCaseAndEncoding) {
  EXPECT_EQ(keyOfPreset("Report"), keyOfPreset("REPORT"));
  EXPECT_EQ(keyOfPreset("ZOË"), keyOfPreset("zoë"));
  EXPECT_EQ(keyOfPreset("Zo\u00EB"), keyOfPreset("Zoe\u0308"));
  EXPECT_NE(keyOfPreset("Zoe"), keyOfPreset("Zoë"));
}

}  // namespace
}  // namespace publishing
