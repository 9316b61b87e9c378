// SPDX-License-Identifier: Apache-2.0
// Storing settings while something goes wrong: the process dies, the disk is full, permissions are
// missing, or another program stores too.
#include <atomic>
#include <filesystem>
#include <functional>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "printing/StoredSettings.h"
#include "tests/printing/Samples.h"
#include "tests/support/FileTrouble.h"
#include "tests/support/KilledChild.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Values = StoredSettings::Values;

const Values kOld = {{kPageinsertState, "On"}, {kPageinsertNums, "3,5,9,"}, {kPiIndex, "2"}};
const Values kNew = {{kCoverModeState, "On"}, {kCoverMediaType, "Tray2"}, {kPageinsertNums, "7,"}};

std::vector<std::string> contentsOfAllFiles(const std::string& folder) {
  std::vector<std::string> contents;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    contents.push_back(contentsOfFile(entry.path()));
  return contents;
}

// Stores kNew in a folder that `prepare` filled, again and again, each time killed one system call
// later, until it is not killed any more. `check` looks at the folder after each of them; then
// storing must work again. Answers how often it was killed.
int killAtEveryStep(const std::function<void(const TemporaryFolder&)>& prepare,
                    const std::function<void(const TemporaryFolder&)>& check) {
  for (int call = 0;; ++call) {
    SCOPED_TRACE("killed before system call " + std::to_string(call));
    const TemporaryFolder folder;
    prepare(folder);
    const StoredSettings settings(folder / "publishing");
    const bool killed = killedBeforeSystemCall(call, [&] { settings.store("Queue", kNew); });
    check(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder / "publishing")) {
      EXPECT_EQ(static_cast<unsigned>(entry.status().permissions()) & 077U, 0U) << entry.path();
    }
    settings.store("Queue", kNew);
    const auto loaded = settings.load("Queue");
    EXPECT_EQ(loaded.values, kNew);
    EXPECT_THAT(loaded.warnings, IsEmpty());
    if (!killed || ::testing::Test::HasFailure()) return call;
  }
}

TEST(StoredSettingsFaults, KilledAtAnyStepLeavesTheOldOrTheNewSettings) {
  int old = 0;
  const int steps = killAtEveryStep(
      [](const TemporaryFolder& folder) {
        StoredSettings(folder / "publishing").store("Queue", kOld);
      },
      [&](const TemporaryFolder& folder) {
        const auto loaded = StoredSettings(folder / "publishing").load("Queue");
        EXPECT_THAT(loaded.values, AnyOf(kOld, kNew));
        EXPECT_THAT(loaded.warnings, IsEmpty());
        if (loaded.values == kOld) ++old;
      });
  EXPECT_GT(old, 5);
  EXPECT_GT(steps, old);
}

TEST(StoredSettingsFaults, KilledAtAnyStepOfTheFirstTimeLeavesNothingOrTheSettings) {
  const int steps = killAtEveryStep([](const TemporaryFolder&) {},
                                    [](const TemporaryFolder& folder) {
                                      const auto loaded =
                                          StoredSettings(folder / "publishing").load("Queue");
                                      EXPECT_THAT(loaded.values, AnyOf(Values{}, kNew));
                                      EXPECT_THAT(loaded.warnings, IsEmpty());
                                      std::filesystem::create_directories(folder / "publishing");
                                    });
  EXPECT_GT(steps, 5);
}

// A file that cannot be read as a whole or in part is never lost, wherever its keeper dies.
TEST(StoredSettingsFaults, KilledAtAnyStepKeepsWhatCouldNotBeRead) {
  for (const std::string& unsound :
       {std::string("garbage\n"), std::string("[Publishing]\nVtPiIndex=a\\nb\n")}) {
    const int steps = killAtEveryStep(
        [&](const TemporaryFolder& folder) {
          std::filesystem::create_directory(folder / "publishing");
          std::filesystem::permissions(folder.file("publishing/Queue.conf", unsound),
                                       std::filesystem::perms(0600));
        },
        [&](const TemporaryFolder& folder) {
          EXPECT_THAT(contentsOfAllFiles(folder / "publishing"), Contains(unsound));
          EXPECT_THAT(StoredSettings(folder / "publishing").load("Queue").values,
                      AnyOf(Values{}, kNew));
          EXPECT_THAT(contentsOfAllFiles(folder / "publishing"), Contains(unsound));
        });
    EXPECT_GT(steps, 5);
  }
}

TEST(StoredSettingsFaults, AFullDiskLeavesTheEarlierSettings) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  settings.store("Queue", kOld);
  {
    const FileSizeLimit limit(20);
    const PrintError error = errorOf([&] { settings.store("Queue", {{kPageinsertNums, "7,"}}); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), HasSubstr("Queue.conf"));
  }
  EXPECT_EQ(settings.load("Queue").values, kOld);
  EXPECT_THAT(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(StoredSettingsFaults, AFolderWithoutPermissionsIsReportedAndLeftAlone) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder / "publishing");
  settings.store("Queue", kOld);
  OrdinaryUser::own(folder / "publishing");
  OrdinaryUser::own(folder / "publishing/Queue.conf");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  for (const auto permissions : {std::filesystem::perms(0), std::filesystem::perms(0555)}) {
    std::filesystem::permissions(folder / "publishing", permissions);
    const OrdinaryUser ordinary;
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { settings.store("Queue", kNew); }, [&] { (void)settings.clear("Queue"); }}) {
      const PrintError error = errorOf(change);
      EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
      EXPECT_THAT(error.what(), AllOf(HasSubstr("Queue.conf"), HasSubstr("Permission denied")));
    }
    if (permissions != std::filesystem::perms(0)) continue;
    EXPECT_THAT(settings.load("Queue").warnings,
                ElementsAre(AllOf(HasSubstr("Queue.conf"), HasSubstr("Permission denied"))));
  }
  std::filesystem::permissions(folder / "publishing", std::filesystem::perms(0700));
  const OrdinaryUser ordinary;
  EXPECT_EQ(settings.load("Queue").values, kOld);
}

TEST(StoredSettingsFaults, ThreadsThatStoreAtOnceNeverMix) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  const auto valuesOf = [](const std::string& word) {
    return Values{{kCoverMediaType, word}, {kPageMediaType, word}, {kCmIndex, word}};
  };
  settings.store("Queue", valuesOf("start"));
  std::atomic<bool> done = false;
  const auto writer = [&](const std::string& word) {
    for (int i = 0; i < 50; ++i)
      settings.store("Queue", valuesOf(word + std::to_string(i)));
  };
  std::thread reader([&] {
    while (!done) {
      const auto loaded = settings.load("Queue");
      EXPECT_THAT(loaded.warnings, IsEmpty());
      EXPECT_EQ(loaded.values, valuesOf(loaded.values.at(kCoverMediaType)));
    }
  });
  std::thread other([&] { writer("short"); });
  writer("much-longer-word");
  other.join();
  done = true;
  reader.join();
}

TEST(StoredSettingsFaults, ProgramsThatStoreAtOnceNeverMix) {
  const TemporaryFolder folder;
  const StoredSettings settings(folder.path());
  std::vector<pid_t> programs;
  for (const Values& values : {kOld, kNew}) {
    programs.push_back(fork());
    ASSERT_GE(programs.back(), 0);
    if (programs.back() != 0) continue;
    for (int i = 0; i < 100; ++i)
      settings.store("Queue", values);
    _exit(0);
  }
  for (const pid_t program : programs) {
    int status = -1;
    while (waitpid(program, &status, WNOHANG) == 0) {
      const auto loaded = settings.load("Queue");
      EXPECT_THAT(loaded.warnings, IsEmpty());
      EXPECT_THAT(loaded.values, AnyOf(Values{}, kOld, kNew));
    }
    EXPECT_EQ(status, 0);
  }
  EXPECT_THAT(settings.load("Queue").values, AnyOf(kOld, kNew));
}

}  // namespace
}  // namespace publishing
