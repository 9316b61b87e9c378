// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/Presets.h"

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "printing/presets/PresetFile.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Existing = Presets::Existing;
using Kind = PrintError::Kind;

mode_t modeOf(const std::string& path) {
  struct stat information {};
  EXPECT_EQ(stat(path.c_str(), &information), 0);
  return information.st_mode & 0777;
}

Preset withCover(const std::string& name, const std::string& medium) {
  return {.name = name, .cover = "front", .coverMedium = {medium, ""}};
}

class PresetsTest : public testing::Test {
 protected:
  PresetsTest() { fs::create_directory(folder / "shared"); }

  std::string shared(const std::string& name, const Preset& preset) const {
    return folder.file("shared/" + name, textOf(preset));
  }
  std::string own(const std::string& name, const std::string& text) const {
    fs::create_directory(folder / "own");
    return folder.file("own/" + name, text);
  }
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const StoredPreset& stored : presets.list().presets)
      names.push_back(stored.preset.name);
    return names;
  }
  std::size_t files() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder / "own"), fs::directory_iterator()));
  }

  TemporaryFolder folder;
  const Presets presets{folder / "own", {folder / "shared", folder / "missing"}};
};

TEST_F(PresetsTest, AreStoredForTheUserAlone) {
  EXPECT_THAT(names(), IsEmpty());
  presets.store(withCover("Report", "Leather"), Existing::Keep);
  const StoredPreset stored = presets.find("Report");
  EXPECT_EQ(stored.preset, withCover("Report", "Leather"));
  EXPECT_FALSE(stored.isShared);
  EXPECT_EQ(modeOf(stored.file), 0600U);
  EXPECT_EQ(modeOf(folder / "own"), 0700U);
}

TEST_F(PresetsTest, AreListedByName) {
  for (const char* name : {"report", "Zebra", "Annual", "émile"})
    presets.store(withCover(name, "Leather"), Existing::Keep);
  EXPECT_THAT(names(), ElementsAre("Annual", "report", "Zebra", "émile"));
}

TEST_F(PresetsTest, OneThatIsThereIsReplacedOnDemandOnly) {
  presets.store(withCover("Report", "Leather"), Existing::Keep);
  const PrintError error =
      errorOf([this] { presets.store(withCover("REPORT", "Plain"), Existing::Keep); });
  EXPECT_EQ(error.kind(), Kind::Refused);
  EXPECT_THAT(error.what(), HasSubstr("already"));
  EXPECT_EQ(presets.find("report").preset, withCover("Report", "Leather"));
  presets.store(withCover("REPORT", "Plain"), Existing::Replace);
  EXPECT_THAT(names(), ElementsAre("REPORT"));
  EXPECT_EQ(files(), 1U);
}

TEST_F(PresetsTest, NamesNeverLeadOutsideTheFolder) {
  const std::string odd[] = {"..",    ".",   "../../x",  "/etc/passwd",         "a/b",     "~",
                             "$HOME", "-rf", "x.preset", std::string(100, 'x'), "年次報告"};
  for (const std::string& name : odd) {
    presets.store(withCover(name, "Leather"), Existing::Keep);
    const StoredPreset stored = presets.find(name);
    EXPECT_EQ(stored.preset.name, name);
    EXPECT_EQ(fs::path(stored.file).parent_path(), folder / "own");
  }
  EXPECT_EQ(files(), std::size(odd));
  for (const std::string& name : odd)
    presets.remove(name);
  EXPECT_EQ(files(), 0U);
}

TEST_F(PresetsTest, BadNamesAreWrongUsage) {
  for (const std::string& name : {std::string(), std::string("a\nb"), std::string(101, 'x')}) {
    EXPECT_EQ(errorOf([&] { (void)presets.find(name); }).kind(), Kind::Usage);
    EXPECT_EQ(errorOf([&] { presets.remove(name); }).kind(), Kind::Usage);
    EXPECT_EQ(errorOf([&] { presets.store({.name = name}, Existing::Keep); }).kind(), Kind::Usage);
    EXPECT_FALSE(presets.hasOwn(name));
  }
}

TEST_F(PresetsTest, ThoseOfTheAdministratorAreThereForAll) {
  const std::string file = shared("house.preset", withCover("House", "Plain"));
  const StoredPreset stored = presets.find("house");
  EXPECT_TRUE(stored.isShared);
  EXPECT_EQ(stored.file, file);
  const PrintError error = errorOf([this] { presets.remove("House"); });
  EXPECT_EQ(error.kind(), Kind::Refused);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("administrator"), HasSubstr(file)));

  presets.store(withCover("house", "Leather"), Existing::Keep);
  EXPECT_THAT(names(), ElementsAre("house"));
  EXPECT_FALSE(presets.find("House").isShared);
  presets.remove("House");
  EXPECT_TRUE(presets.find("House").isShared);
}

TEST_F(PresetsTest, OneThatIsMissingIsToldWithThoseThatAreThere) {
  EXPECT_THAT(errorOf([this] { (void)presets.find("x"); }).what(), HasSubstr("no other"));
  presets.store(withCover("Report", "Leather"), Existing::Keep);
  const PrintError error = errorOf([this] { (void)presets.find("x"); });
  EXPECT_EQ(error.kind(), Kind::Refused);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("\"x\""), HasSubstr("\n  Report")));
  EXPECT_EQ(errorOf([this] { presets.remove("x"); }).kind(), Kind::Refused);
}

// The administrator's preset of that name would be another one.
TEST_F(PresetsTest, OneThatIsDamagedIsAnErrorAndStandsInNoOthersWay) {
  shared("report.preset", withCover("Report", "Plain"));
  own("report.preset", "garbage\n");
  presets.store(withCover("Sound", "Leather"), Existing::Keep);
  EXPECT_THAT(names(), ElementsAre("Report", "Sound"));
  EXPECT_THAT(presets.list().warnings, ElementsAre(HasSubstr("own/report.preset")));
  const PrintError error = errorOf([this] { (void)presets.find("Report"); });
  EXPECT_EQ(error.kind(), Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("not a valid preset"));

  EXPECT_TRUE(presets.hasOwn("Report"));
  EXPECT_EQ(errorOf([this] { presets.store({.name = "Report"}, Existing::Keep); }).kind(),
            Kind::Refused);
  presets.remove("Report");
  EXPECT_TRUE(presets.find("Report").isShared);
}

TEST_F(PresetsTest, TheNameInTheFileCounts) {
  own("any.preset", textOf(withCover("Report", "Leather")));
  EXPECT_EQ(presets.find("REPORT").preset.name, "Report");
  EXPECT_EQ(errorOf([this] { (void)presets.find("any"); }).kind(), Kind::Refused);
  // Neither is in the other's way.
  presets.store(withCover("Any", "Plain"), Existing::Keep);
  presets.store(withCover("report", "Plain"), Existing::Replace);
  EXPECT_THAT(names(), ElementsAre("Any", "report"));
  EXPECT_EQ(files(), 2U);
}

TEST_F(PresetsTest, TwoFilesWithOneNameAreTold) {
  own("a.preset", textOf(withCover("Report", "Leather")));
  own("b.preset", textOf(withCover("report", "Plain")));
  EXPECT_THAT(names(), ElementsAre("Report"));
  EXPECT_THAT(presets.list().warnings, ElementsAre(HasSubstr("b.preset")));
  presets.remove("report");
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PresetsTest, WhatIsNoPresetFileIsLeftAlone) {
  own("Queue.conf", "[Publishing]\n");
  fs::create_directory(folder / "own/folder.preset");
  ASSERT_EQ(mkfifo((folder / "own/pipe.preset").c_str(), 0600), 0);
  fs::create_symlink("/nowhere", folder / "own/link.preset");
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(presets.list().warnings.size(), 3U);
  EXPECT_TRUE(fs::exists(folder / "own/Queue.conf"));
}

TEST_F(PresetsTest, ThoseOfOthersAreNotUsed) {
  const std::string file = own("report.preset", textOf(withCover("Report", "Leather")));
  fs::permissions(file, fs::perms::all);
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(presets.list().warnings, ElementsAre(HasSubstr("anyone can write to it")));
  fs::permissions(file, fs::perms::owner_all);
  EXPECT_THAT(names(), ElementsAre("Report"));

  fs::permissions(folder / "own", fs::perms::all);
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(errorOf([this] { (void)presets.find("Report"); }).kind(), Kind::Trouble);
  EXPECT_EQ(errorOf([this] { presets.store({.name = "x"}, Existing::Keep); }).kind(),
            Kind::Trouble);
  fs::permissions(folder / "own", fs::perms::owner_all);

  if (geteuid() != 0) return;
  ASSERT_EQ(chown(file.c_str(), 65534, 65534), 0);
  EXPECT_THAT(presets.list().warnings, ElementsAre(HasSubstr("belongs to another user")));
}

TEST_F(PresetsTest, FoldersOfTheAdministratorMustNotBeEverybodys) {
  shared("house.preset", withCover("House", "Plain"));
  fs::permissions(folder / "shared", fs::perms::all);
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(presets.list().warnings, ElementsAre(HasSubstr("anyone can write")));
  fs::permissions(folder / "shared", fs::perms::owner_all);
  EXPECT_THAT(names(), ElementsAre("House"));
}

TEST_F(PresetsTest, AFolderThatCannotBeMadeIsReported) {
  const Presets blocked(folder.file("file", "") + "/presets", {});
  const PrintError error =
      errorOf([&blocked] { blocked.store(withCover("x", "Plain"), Existing::Keep); });
  EXPECT_EQ(error.kind(), Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("cannot be written"));
}

TEST_F(PresetsTest, OfManyThatSaveOneNameAtOnceOneWinsAndTheOthersAreTold) {
  constexpr int kThreads = 8;
  std::atomic<int> winners = 0;
  std::atomic<int> refused = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      try {
        presets.store(withCover("Report", "Medium" + std::to_string(number)), Existing::Keep);
        ++winners;
      } catch (const PrintError& error) {
        if (error.kind() == Kind::Refused) ++refused;
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(winners, 1);
  EXPECT_EQ(refused, kThreads - 1);
  EXPECT_THAT(names(), ElementsAre("Report"));
  EXPECT_EQ(files(), 1U);
}

TEST_F(PresetsTest, ReplacingAtOnceNeverMixes) {
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([this, number] {
      for (int round = 0; round < 10; ++round) {
        const std::string name = number % 2 == 0 ? "Report" : "REPORT";
        presets.store(withCover(name, std::string(200, static_cast<char>('a' + number))),
                      Existing::Replace);
        const std::string medium = presets.find("report").preset.coverMedium.keyword;
        EXPECT_EQ(medium, std::string(200, medium.front()));
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(files(), 1U);
}

TEST_F(PresetsTest, AreGivenToOthersAsOneFile) {
  const Preset report = withCover("Report", "Leather");
  const std::string path = folder / "report.preset";
  exportPreset(report, path, Existing::Keep);
  EXPECT_EQ(readPresetFile(path).preset, report);
  EXPECT_EQ(errorOf([&] { exportPreset(report, path, Existing::Keep); }).kind(), Kind::Refused);
  exportPreset(withCover("Report", "Plain"), path, Existing::Replace);
  EXPECT_EQ(readPresetFile(path).preset, withCover("Report", "Plain"));
}

TEST_F(PresetsTest, ExportingReplacesNothingButFiles) {
  const Preset report = withCover("Report", "Leather");
  fs::create_directory(folder / "there");
  fs::create_symlink("there", folder / "link");
  for (const std::string& path : {folder / "there", folder / "link", std::string("/dev/null")}) {
    const PrintError error = errorOf([&] { exportPreset(report, path, Existing::Replace); });
    EXPECT_EQ(error.kind(), Kind::Refused) << path;
    EXPECT_THAT(error.what(), HasSubstr("not a regular file")) << path;
  }
  EXPECT_EQ(errorOf([&] { exportPreset(report, folder / "no/x", Existing::Keep); }).kind(),
            Kind::Trouble);
}

}  // namespace
}  // namespace publishing
