// SPDX-License-Identifier: Apache-2.0
#include "printing/StoredSettings.h"

#include <filesystem>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Publishing/PublishingKeys.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

using Values = StoredSettings::Values;

const Values kSomeValues = {{kPageinsertState, "On"},
                            {kPageinsertNums, "3,5,9,"},
                            {kPiIndex, "2"},
                            {kPageMediaType, "Tray 2 \"é\" \\ ;#[x]=\\n"}};

mode_t modeOf(const std::string& path) {
  struct stat information {};
  EXPECT_EQ(stat(path.c_str(), &information), 0);
  return information.st_mode & 0777;
}

TEST(StoredSettings, GivesBackWhatWasStoredByteByByte) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder / "new/publishing");
  settings.store("Queue", kSomeValues);
  const auto loaded = settings.load("Queue");
  EXPECT_EQ(loaded.values, kSomeValues);
  EXPECT_THAT(loaded.warnings, IsEmpty());
  EXPECT_EQ(modeOf(settings.fileOf("Queue")), 0600u);
  EXPECT_EQ(modeOf(folder / "new/publishing"), 0700u);
}

TEST(StoredSettings, KeepsThePanelsKeysAndForgetsTheOthers) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  settings.store("Queue", {{kCmIndex, "1"}, {"copies", "7"}, {"sides", "one-sided"}, {kNup, "1"}});
  EXPECT_THAT(settings.load("Queue").values, ElementsAre(Pair(kCmIndex, "1")));
  settings.store("Queue", {{kPiIndex, "2"}});
  EXPECT_THAT(settings.load("Queue").values, ElementsAre(Pair(kPiIndex, "2")));
}

TEST(StoredSettings, NothingStoredIsNoFault) {
  const TemporaryFolder folder;
  for (const std::string& place : {folder.path(), folder / "missing", folder.file("file", "")}) {
    const auto loaded = StoredSettings(place).load("Queue");
    EXPECT_THAT(loaded.values, IsEmpty());
    EXPECT_THAT(loaded.warnings, IsEmpty());
    EXPECT_FALSE(StoredSettings(place).clear("Queue"));
  }
}

TEST(StoredSettings, ClearForgetsOneQueueOnly) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  settings.store("A", kSomeValues);
  settings.store("B", kSomeValues);
  EXPECT_TRUE(settings.clear("A"));
  EXPECT_FALSE(settings.clear("A"));
  EXPECT_THAT(settings.load("A").values, IsEmpty());
  EXPECT_EQ(settings.load("B").values, kSomeValues);
}

TEST(StoredSettings, EveryQueueHasAFileOfItsOwnInTheFolder) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  const std::string names[] = {"Queue",      "queue",
                               "Queue.conf", "a%2Fb",
                               "a/b",        "..",
                               ".",          "../../etc/passwd",
                               "Zoë",        std::string(127, '\xC3'),
                               "",           std::string(126, '\xC3') + '\xC4',
                               "a b",        std::string("a\0b", 3)};
  std::set<std::string> files;
  for (const std::string& name : names) {
    settings.store(name, {{kCmIndex, std::to_string(name.size())}});
    const std::filesystem::path file = settings.fileOf(name);
    EXPECT_EQ(file.parent_path(), folder.path());
    EXPECT_TRUE(files.insert(file).second) << name;
  }
  for (const std::string& name : names)
    EXPECT_THAT(settings.load(name).values,
                ElementsAre(Pair(kCmIndex, std::to_string(name.size()))));
}

TEST(StoredSettings, ReportsUnsoundEntriesAndUsesTheOthers) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  const std::string path = folder.file("Queue.conf",
                                       "# mine\n[Publishing]\nVtCmIndex=2\nVtNew=x\n"
                                       "VtPiIndex=" +
                                           std::string(300, '1') +
                                           "\nVtPageinsertNums=3\\n5\nVtUnspecified=\xFF\n"
                                           "VtCoverModeValue=a\\q\n"
                                           "[Other]\nVtCmIndex=9\n");
  const auto loaded = settings.load("Queue");
  EXPECT_THAT(loaded.values, ElementsAre(Pair(kCmIndex, "2")));
  EXPECT_THAT(loaded.warnings,
              UnorderedElementsAre(AllOf(HasSubstr(path), HasSubstr("VtNew")),
                                   AllOf(HasSubstr(path), HasSubstr("VtPiIndex")),
                                   AllOf(HasSubstr(path), HasSubstr("VtPageinsertNums")),
                                   AllOf(HasSubstr(path), HasSubstr("VtUnspecified")),
                                   AllOf(HasSubstr(path), HasSubstr("VtCoverModeValue")),
                                   AllOf(HasSubstr(path), HasSubstr("VtCmIndex"))));
}

TEST(StoredSettings, StoringKeepsUnknownEntriesAndACopyOfUnsoundOnes) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  const std::string before = "# mine\n[Publishing]\nVtNew=x\nVtPiIndex=a\\nb\n[Other]\nKey=9\n";
  const std::string path = folder.file("Queue.conf", before);
  settings.store("Queue", {{kCmIndex, "1"}});
  EXPECT_THAT(contentsOfFile(path),
              AllOf(HasSubstr("# mine"), HasSubstr("VtNew=x"), HasSubstr("[Other]\nKey=9")));
  EXPECT_EQ(contentsOfFile(path + ".broken-1"), before);
  EXPECT_THAT(settings.load("Queue").values, ElementsAre(Pair(kCmIndex, "1")));
}

TEST(StoredSettings, AnEntryThatStandsTwiceDoesNotComeBack) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  (void)folder.file("Queue.conf",
                    "[Publishing]\nVtPageinsertNums=3,\nVtCmIndex=1\n[Publishing]\nVtCmIndex=2\n"
                    "VtPageinsertNums=5,\nVtPageinsertNums=7,\n");
  EXPECT_THAT(settings.load("Queue").values,
              UnorderedElementsAre(Pair(kPageinsertNums, "7,"), Pair(kCmIndex, "2")));
  settings.store("Queue", {{kCmIndex, "3"}});
  EXPECT_THAT(settings.load("Queue").values, ElementsAre(Pair(kCmIndex, "3")));
}

TEST(StoredSettings, KeepsBrokenFilesAside) {
  const std::string contents[] = {"garbage\n", std::string("\0\1\2", 3),
                                  "[Publishing\nVtCmIndex=1\n", "[Publishing]\nno value\n",
                                  std::string(70000, '#')};
  for (const std::string& broken : contents) {
    const TemporaryFolder folder;
    const StoredSettings settings(folder.path());
    const std::string path = folder.file("Queue.conf", broken);
    (void)folder.file("Queue.conf.broken-1", "an older one");
    const auto loaded = settings.load("Queue");
    EXPECT_THAT(loaded.values, IsEmpty());
    EXPECT_THAT(loaded.warnings,
                ElementsAre(AllOf(HasSubstr(path), HasSubstr("Queue.conf.broken-2"))));
    EXPECT_EQ(contentsOfFile(path + ".broken-1"), "an older one");
    EXPECT_EQ(contentsOfFile(path + ".broken-2"), broken);
    EXPECT_THAT(settings.load("Queue").warnings, IsEmpty());
  }
}

TEST(StoredSettings, StoringOverABrokenFileKeepsItAside) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  const std::string path = folder.file("Queue.conf", "garbage\n");
  settings.store("Queue", kSomeValues);
  EXPECT_EQ(contentsOfFile(path + ".broken-1"), "garbage\n");
  EXPECT_EQ(settings.load("Queue").values, kSomeValues);
}

TEST(StoredSettings, AFolderInPlaceOfTheFileIsKeptAsideToo) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  std::filesystem::create_directory(folder / "Queue.conf");
  EXPECT_THAT(settings.load("Queue").warnings, SizeIs(1));
  settings.store("Queue", kSomeValues);
  EXPECT_EQ(settings.load("Queue").values, kSomeValues);
}

TEST(StoredSettings, AFileInPlaceOfTheFolderIsReported) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.file("publishing", "mine"));
  const PrintError error = errorOf([&] { settings.store("Queue", kSomeValues); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr(folder / "publishing"));
  EXPECT_EQ(contentsOfFile(folder / "publishing"), "mine");
}

TEST(StoredSettings, PageListsMayBeLongerThanOtherValues) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  std::string everyPage;
  for (int page = 2; page <= 511; ++page)
    everyPage += std::to_string(page) + ",";
  settings.store("Queue", {{kPageinsertNums, everyPage}});
  EXPECT_THAT(settings.load("Queue").values, ElementsAre(Pair(kPageinsertNums, everyPage)));
  for (const std::string& list : {everyPage + everyPage, std::string("3 5"), std::string("3,x")}) {
    const PrintError error = errorOf([&] { settings.store("Queue", {{kPageinsertNums, list}}); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    EXPECT_THAT(error.what(), HasSubstr(kPageinsertNums));
  }
}

TEST(StoredSettings, RefusesValuesThatItWouldNotTakeBack) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  settings.store("Queue", kSomeValues);
  for (const std::string& value :
       {std::string("a\nb"), std::string(256, 'x'), std::string("\xFF")}) {
    const PrintError error = errorOf([&] { settings.store("Queue", {{kCoverMediaType, value}}); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    EXPECT_EQ(settings.load("Queue").values, kSomeValues);
  }
}

}  // namespace
}  // namespace publishing
