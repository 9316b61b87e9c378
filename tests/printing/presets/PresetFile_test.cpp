// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/PresetFile.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const Preset kReport = {.name = "Zoë's \\n report; [x] #=",
                        .cover = "front-back",
                        .coverMedium = {"Leather", "Leather Grain “Größe A”"},
                        .coverSides = {"front-outside", "back-inside"},
                        .insert = "5-6,9",
                        .insertMedium = {"Tray2", ""},
                        .insertSides = {"front"}};

// A sound file, with the lines behind it.
std::string file(const std::string& lines) {
  return "[Publishing Preset]\nVersion=1\nName=Report\n" + lines;
}

TEST(PresetFile, GivesBackWhatWasWritten) {
  for (const Preset& preset : {kReport, Preset{.name = "Plain"}}) {
    const ReadPreset read = parsePreset(textOf(preset));
    EXPECT_EQ(read.preset, preset);
    EXPECT_THAT(read.warnings, IsEmpty());
  }
}

TEST(PresetFile, CanBeWrittenByHand) {
  const ReadPreset read = parsePreset(
      "# Ours\r\n[Publishing Preset]\r\nVersion=1\r\nName=House\r\nCover=front\r\n"
      "CoverMedia=Leather\r\nCoverSides=front-inside,front-outside,front-inside\r\n");
  EXPECT_EQ(read.preset, (Preset{.name = "House",
                                 .cover = "front",
                                 .coverMedium = {"Leather", ""},
                                 .coverSides = {"front-outside", "front-inside"}}));
  EXPECT_EQ(parsePreset(file("Insert=5\nInsertMedia=Tray2\n")).preset.insert, "5");
}

TEST(PresetFile, WhatIsUnknownIsToldAndIgnored) {
  const ReadPreset read = parsePreset(file("Paper=x\nName[de]=Bericht\n[Other]\nCover=front\n"));
  EXPECT_EQ(read.preset, (Preset{.name = "Report"}));
  EXPECT_THAT(read.warnings,
              ElementsAre(HasSubstr("Paper"), HasSubstr("Name[de]"), HasSubstr("Cover")));
}

TEST(PresetFile, MediaAndSidesOfAFeatureThatIsOffDoNotCount) {
  const ReadPreset read =
      parsePreset(file("Cover=none\nCoverMedia=Leather\nInsertSides=front\nInsert=none\n"));
  EXPECT_EQ(read.preset, (Preset{.name = "Report"}));
  EXPECT_THAT(read.warnings, IsEmpty());
}

// Half a preset would print something else.
TEST(PresetFile, WhatIsDamagedIsRefusedWithTheReason) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "no section [Publishing Preset]"},
      {"garbage\n", "garbage"},
      {"[Publishing Preset\nVersion=1\n", "[Publishing Preset"},
      {"[Other]\nVersion=1\n", "no section"},
      {"[Publishing Preset]\nName=x\n", "Version is missing"},
      {"[Publishing Preset]\nVersion=2\nName=x\n", "newer version"},
      {"[Publishing Preset]\nVersion=1\n", "needs a name"},
      {"[Publishing Preset]\nVersion=1\nName=a\\nb\n", "cannot be shown"},
      {"[Publishing Preset]\nVersion=1\nName=\xFF\n", "UTF-8"},
      {"[Publishing Preset]\nVersion=1\nName=a\\q\n", "escape"},
      {"[Publishing Preset]\nVersion=1\nName=" + std::string(101, 'x') + "\n", "longer than 100"},
      {file("Cover=both\nCoverMedia=Leather\n"), "Cover does not take \"both\""},
      {file("Cover=front\n"), "CoverMedia is missing"},
      {file("Cover=front\nCoverMedia=\n"), "CoverMedia is missing"},
      {file("Cover=front\nCoverMedia=a\\nb\n"), "control character"},
      {file("Cover=front\nCoverMedia=true\n"), "true"},
      {file("Cover=front\nCoverMedia=" + std::string(300, 'x') + "\n"), "longer than 255"},
      {file("Cover=front\nCoverMedia=Leather\nCoverMediaText=" + std::string(300, 'x') + "\n"),
       "CoverMediaText is too long"},
      {file("Cover=front\nCoverMedia=Leather\nCoverSides=front-outside,top\n"),
       "CoverSides does not take \"top\""},
      {file("Cover=front\nCoverMedia=Leather\nCoverSides=front-outside,\n"),
       "CoverSides does not take \"\""},
      {file("Cover=front\nCoverMedia=Leather\nCoverSides=back-inside\n"), "needs a back cover"},
      {file("Insert=5;8\nInsertMedia=Tray2\n"), "Insert has characters other than"},
      {file("Insert=" + std::string(2049, '5') + "\nInsertMedia=Tray2\n"), "longer than 2048"},
      {file("Insert=5\n"), "InsertMedia is missing"},
      {file("Insert=5\nInsertMedia=Tray2\nInsertSides=inside\n"), "InsertSides does not take"},
  };
  for (const auto& [text, fault] : cases) {
    const PrintError error = errorOf([&text] { (void)parsePreset(text); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble) << text;
    EXPECT_THAT(error.what(), HasSubstr(fault)) << text;
  }
}

TEST(PresetFile, FaultsNameTheFile) {
  const TemporaryFolder folder;
  const std::string missing = folder / "missing.preset";
  const std::pair<std::string, const char*> cases[] = {
      {missing, "there is no such file"},
      {folder.path(), "not a regular file"},
      {folder.file("large", std::string(70000, '#')), "too large"},
      {folder.file("nul", std::string("a\0b", 3)), "NUL"},
      {folder.file("garbage", "garbage\n"), "not a valid preset"},
      {"/dev/zero", "not a regular file"},
  };
  for (const auto& [path, fault] : cases) {
    const PrintError error = errorOf([&path] { (void)readPresetFile(path); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble) << path;
    EXPECT_THAT(error.what(), AllOf(HasSubstr(path), HasSubstr(fault)));
  }
  const std::string odd = folder.file("odd", file("Paper=x\n"));
  EXPECT_THAT(readPresetFile(odd).warnings, ElementsAre(AllOf(HasSubstr(odd), HasSubstr("Paper"))));
}

TEST(PresetFile, WhatCouldNotBeReadAgainIsNotWritten) {
  Preset preset = kReport;
  preset.coverMedium.keyword = "two\nlines";
  EXPECT_EQ(errorOf([&] { (void)textOf(preset); }).kind(), PrintError::Kind::Refused);
  preset = kReport;
  preset.insert = "";
  EXPECT_EQ(errorOf([&] { (void)textOf(preset); }).kind(), PrintError::Kind::Refused);
}

}  // namespace
}  // namespace publishing
