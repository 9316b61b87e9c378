// SPDX-License-Identifier: Apache-2.0
#include "base/UserFolders.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using ::testing::HasSubstr;

class UserFolders : public ::testing::Test {
 protected:
  void SetUp() override { set("XDG_CONFIG_HOME", nullptr); }

  static void set(const char* variable, const char* value) {
    if (value == nullptr) {
      unsetenv(variable);
    } else {
      setenv(variable, value, 1);
    }
  }

  TemporaryFolder folder_;
};

TEST_F(UserFolders, AreThoseOfAbsolutePathsOnly) {
  const struct {
    const char* config;
    const char* home;
    const char* folder;
  } cases[] = {
      {"/etc/mine", "/home/me", "/etc/mine"},     {nullptr, "/home/me", "/home/me/.config"},
      {"", "/home/me", "/home/me/.config"},       {"here", "/home/me", "/home/me/.config"},
      {"./here", "/home/me", "/home/me/.config"},
  };
  for (const auto& [config, home, folder] : cases) {
    set("XDG_CONFIG_HOME", config);
    set("HOME", home);
    EXPECT_EQ(userConfigFolder(), folder);
  }
  set("XDG_CONFIG_HOME", nullptr);
  for (const char* home : {"", "home", "."}) {
    set("HOME", home);
    EXPECT_EQ(userConfigFolder().front(), '/') << home;
  }
}

TEST_F(UserFolders, OfTheSystemAreAbsolutePathsInTheirOrder) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {nullptr, {"/etc/xdg"}},  {"", {"/etc/xdg"}}, {"/b:/a", {"/b", "/a"}},
      {"here:/a::./b", {"/a"}}, {"here", {}},
  };
  for (const auto& [list, folders] : cases) {
    set("XDG_CONFIG_DIRS", list);
    EXPECT_EQ(systemConfigFolders(), folders);
  }
  set("XDG_CONFIG_DIRS", nullptr);
}

TEST_F(UserFolders, MayBeTheAdministratorsWhereThatIsMeant) {
  namespace fs = std::filesystem;
  EXPECT_EQ(faultOfSystemOwner("/usr"), std::nullopt);
  EXPECT_EQ(faultOfSystemOwner(folder_.path()), std::nullopt);
  EXPECT_EQ(faultOfFileOwner("/etc/passwd"), std::nullopt);
  EXPECT_EQ(faultOfFileOwner(folder_ / "missing"), std::nullopt);
  const std::string file = folder_.file("file", "");
  EXPECT_EQ(faultOfFileOwner(file), std::nullopt);
  fs::permissions(file, fs::perms::all);
  EXPECT_THAT(faultOfFileOwner(file).value_or(""), HasSubstr("anyone can write"));
  fs::permissions(folder_.path(), fs::perms::all);
  EXPECT_THAT(faultOfSystemOwner(folder_.path()).value_or(""), HasSubstr("anyone can write"));
  fs::permissions(folder_.path(), fs::perms::owner_all);
}

TEST_F(UserFolders, OfOthersAreNotTrusted) {
  namespace fs = std::filesystem;
  EXPECT_EQ(faultOfOwner(folder_.path()), std::nullopt);
  EXPECT_EQ(faultOfOwner(folder_ / "not/there/yet"), std::nullopt);
  EXPECT_EQ(faultOfOwner("/tmp/publishing-that-is-not-there"), std::nullopt);
  fs::permissions(folder_.path(), fs::perms::all);
  EXPECT_THAT(faultOfOwner(folder_.path()).value_or(""), HasSubstr("anyone can write"));
  EXPECT_THAT(faultOfOwner(folder_ / "not/there/yet").value_or(""), HasSubstr(folder_.path()));
  fs::permissions(folder_.path(), fs::perms::owner_all);
  if (geteuid() == 0) {
    ASSERT_EQ(chown(folder_.path().c_str(), 65534, 65534), 0);
    EXPECT_THAT(faultOfOwner(folder_ / "publishing").value_or(""), HasSubstr("another user"));
    ASSERT_EQ(chown(folder_.path().c_str(), 0, 0), 0);
  } else {
    EXPECT_THAT(faultOfOwner("/usr").value_or(""), HasSubstr("another user"));
  }
}

}  // namespace
}  // namespace publishing
