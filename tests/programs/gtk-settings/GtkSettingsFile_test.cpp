// SPDX-License-Identifier: Apache-2.0
// Switching the extension on and off in a settings.ini of GTK, also while something goes wrong.
#include "programs/gtk-settings/GtkSettingsFile.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/printing/Samples.h"
#include "tests/support/FileTrouble.h"
#include "tests/support/KilledChild.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::HasSubstr;

using Change = GtkSettingsFile::Change;

const std::string kGiven = "# mine\n[Settings]\ngtk-print-backends=file\n";
const std::string kEnabled = "# mine\n[Settings]\ngtk-print-backends=file,publishing\n";

class GtkSettings : public ::testing::Test {
 protected:
  [[nodiscard]] std::string contents() const {
    return fs::is_regular_file(fs::status(path_, ignored_)) ? contentsOfFile(path_) : "";
  }

  // What stat(2) says of the file.
  [[nodiscard]] struct stat information() const {
    struct stat result {};
    EXPECT_EQ(stat(path_.c_str(), &result), 0);
    return result;
  }

  [[nodiscard]] static long entriesOf(const std::string& folder) {
    return std::distance(fs::directory_iterator(folder), {});
  }

  mutable std::error_code ignored_;  // a link may lead nowhere
  TemporaryFolder folder_;
  std::string path_ = folder_ / "settings.ini";
  GtkSettingsFile file_ = {path_, "Ask the owner."};
};

TEST_F(GtkSettings, AreGivenBackByteForByte) {
  (void)folder_.file("settings.ini", kGiven);
  EXPECT_EQ(file_.enable("cups"), Change::Written);
  EXPECT_EQ(contents(), kEnabled);
  EXPECT_EQ(file_.enable("cups"), Change::None);
  EXPECT_EQ(file_.disable(), Change::Written);
  EXPECT_EQ(contents(), kGiven);
  EXPECT_EQ(file_.disable(), Change::None);
  EXPECT_EQ(entriesOf(folder_.path()), 1);
}

TEST_F(GtkSettings, AFileThatWasMadeIsRemovedAndTheFolderStays) {
  EXPECT_EQ(file_.enable("file,cups"), Change::Written);
  EXPECT_THAT(contents(), HasSubstr("\n[Settings]\ngtk-print-backends=file,cups,publishing\n"));
  EXPECT_EQ(file_.disable(), Change::Removed);
  EXPECT_EQ(entriesOf(folder_.path()), 0);
}

TEST_F(GtkSettings, AFolderThatWasMadeIsRemovedUnlessOthersUseIt) {
  const GtkSettingsFile file(folder_ / "gtk-3.0/settings.ini", "");
  EXPECT_EQ(file.enable("file,cups"), Change::Written);
  EXPECT_EQ(file.disable(), Change::Removed);
  EXPECT_FALSE(fs::exists(folder_ / "gtk-3.0"));
  EXPECT_EQ(file.enable("file,cups"), Change::Written);
  (void)folder_.file("gtk-3.0/bookmarks", "");
  EXPECT_EQ(file.disable(), Change::Removed);
  EXPECT_TRUE(fs::exists(folder_ / "gtk-3.0/bookmarks"));
}

TEST_F(GtkSettings, AnEmptyFileStaysAnEmptyFile) {
  (void)folder_.file("settings.ini", "");
  EXPECT_EQ(file_.enable("file,cups"), Change::Written);
  EXPECT_EQ(file_.disable(), Change::Written);
  EXPECT_TRUE(fs::exists(path_));
  EXPECT_EQ(contents(), "");
}

TEST_F(GtkSettings, WhatOthersAddedToAFileThatWasMadeStays) {
  EXPECT_EQ(file_.enable("file,cups"), Change::Written);
  (void)folder_.file("settings.ini", contents() + "gtk-theme-name=Adwaita\n");
  EXPECT_EQ(file_.disable(), Change::Written);
  EXPECT_EQ(contents(), "[Settings]\ngtk-theme-name=Adwaita\n");
}

TEST_F(GtkSettings, KeepModeAndOwner) {
  (void)folder_.file("settings.ini", kGiven);
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path_.c_str(), 65534, 65533), 0);
  }
  ASSERT_EQ(chmod(path_.c_str(), 0640), 0);
  const struct stat before = information();
  EXPECT_EQ(file_.enable("cups"), Change::Written);
  const struct stat after = information();
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(GtkSettings, ALinkStaysALink) {
  fs::create_directory(folder_ / "dotfiles");
  const std::string target = folder_.file("dotfiles/gtk.ini", kGiven);
  fs::create_symlink("dotfiles/gtk.ini", path_);
  EXPECT_EQ(file_.enable("cups"), Change::Written);
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_EQ(contentsOfFile(target), kEnabled);
  EXPECT_EQ(file_.disable(), Change::Written);
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_EQ(contentsOfFile(target), kGiven);
}

TEST_F(GtkSettings, ThatWereMadeAndBecameALinkAreEmptiedOnly) {
  EXPECT_EQ(file_.enable("cups"), Change::Written);
  fs::rename(path_, folder_ / "moved.ini");
  fs::create_symlink("moved.ini", path_);
  EXPECT_EQ(file_.disable(), Change::Written);
  EXPECT_TRUE(fs::exists(path_));
  EXPECT_EQ(contents(), "");
}

TEST_F(GtkSettings, AreLeftAloneWhenTheyCannotBeUsed) {
  const std::vector<std::pair<std::function<void()>, std::string>> rows = {
      {[this] { (void)folder_.file("settings.ini", "[Settings]\ngarbage\n"); }, "garbage"},
      {[this] { (void)folder_.file("settings.ini", std::string("[Settings]\0", 11)); }, "NUL"},
      {[this] { (void)folder_.file("settings.ini", std::string(1048577, '\n')); }, "too large"},
      {[this] { fs::create_directory(path_); }, "not a regular file"},
      {[this] { fs::create_symlink("nowhere", path_); }, "is a link to nowhere"},
      {[this] { fs::create_symlink("settings.ini", path_); }, "symbolic links"},
  };
  for (const auto& [prepare, reason] : rows) {
    fs::remove_all(path_);
    prepare();
    const std::string before = contents();
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { (void)file_.enable("file,cups"); }, [&] { (void)file_.disable(); }}) {
      const PrintError error = errorOf(change);
      EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
      EXPECT_THAT(error.what(), AllOf(HasSubstr(path_), HasSubstr(reason)));
    }
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(entriesOf(folder_.path()), 1);
  }
}

TEST_F(GtkSettings, WithoutPermissionNameTheRemedy) {
  (void)folder_.file("settings.ini", kGiven);
  fs::permissions(folder_.path(), fs::perms(0555));
  {
    const OrdinaryUser ordinary;
    EXPECT_THAT(errorOf([&] { (void)file_.enable("cups"); }).what(),
                AllOf(HasSubstr(path_), HasSubstr("Permission denied. Ask the owner.")));
  }
  EXPECT_EQ(contents(), kGiven);
}

// A writable folder does not make the file one's own.
TEST_F(GtkSettings, OfAnotherOwnerAreRefused) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
  (void)folder_.file("settings.ini", kGiven);
  fs::permissions(folder_.path(), fs::perms(0777));
  {
    const OrdinaryUser ordinary;
    EXPECT_THAT(errorOf([&] { (void)file_.enable("cups"); }).what(),
                HasSubstr("Operation not permitted. Ask the owner."));
  }
  EXPECT_EQ(contents(), kGiven);
  EXPECT_EQ(information().st_uid, 0U);
  EXPECT_EQ(entriesOf(folder_.path()), 1);
}

TEST_F(GtkSettings, SurviveAFullDisk) {
  (void)folder_.file("settings.ini", kGiven);
  {
    const FileSizeLimit limit(20);
    const PrintError error = errorOf([&] { (void)file_.enable("cups"); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), AllOf(HasSubstr(path_), HasSubstr("free space")));
  }
  EXPECT_EQ(contents(), kGiven);
  EXPECT_EQ(entriesOf(folder_.path()), 1);
}

TEST_F(GtkSettings, KilledAtAnyStepAreTheOldOrTheNewOnes) {
  const auto enable = [this] { (void)file_.enable("cups"); };
  const auto disable = [this] { (void)file_.disable(); };
  for (const bool on : {true, false}) {
    int old = 0;
    int call = 0;
    for (bool killed = true; killed && !HasFailure(); ++call) {
      SCOPED_TRACE("killed before system call " + std::to_string(call));
      (void)folder_.file("settings.ini", on ? kGiven : kEnabled);
      killed = killedBeforeSystemCall(call, on ? std::function<void()>(enable) : disable);
      EXPECT_THAT(contents(), AnyOf(kGiven, kEnabled));
      if (contents() == (on ? kGiven : kEnabled)) ++old;
      on ? enable() : disable();
      EXPECT_EQ(contents(), on ? kEnabled : kGiven);
    }
    EXPECT_GT(old, 5);
    EXPECT_GT(call, old);
  }
}

}  // namespace
}  // namespace publishing
