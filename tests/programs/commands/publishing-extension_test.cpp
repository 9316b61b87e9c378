// SPDX-License-Identifier: Apache-2.0
// "publishing extension" as a user calls it.
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class PublishingExtension : public ::testing::Test {
 protected:
  PublishingExtension() {
    for (const char* folder : {"user/gtk-3.0", "system/gtk-3.0", "gtk/printbackends", "data"})
      std::filesystem::create_directories(folder_ / folder);
    (void)folder_.file("gtk/printbackends/libprintbackend-publishing.so", "");
  }

  // The system-wide settings are those of the folder "system".
  [[nodiscard]] Outcome run(std::vector<std::string> words,
                            const std::map<std::string, std::string>& environment = {}) const {
    words.insert(words.begin(), {PUBLISHING_PROGRAM, "extension"});
    std::map<std::string, std::string> variables = {
        {"XDG_CONFIG_HOME", folder_ / "user"}, {"XDG_CONFIG_DIRS", folder_ / "system"},
        {"GTK_DATA_PREFIX", folder_ / "data"}, {"GTK_EXE_PREFIX", folder_ / "data"},
        {"GTK_PATH", folder_ / "gtk"},         {"PUBLISHING_EXTENSION", "1"}};
    for (const auto& [name, value] : environment)
      variables[name] = value;
    return runProgram(words, variables);
  }

  [[nodiscard]] json status() const { return json::parse(run({"status", "--json"}).output); }

  TemporaryFolder folder_;
  std::string userFile_ = folder_ / "user/gtk-3.0/settings.ini";
  std::string systemFile_ = folder_ / "system/gtk-3.0/settings.ini";
};

TEST_F(PublishingExtension, TellsWhatItDid) {
  const Outcome enabled = run({"enable"});
  EXPECT_EQ(enabled.status, 0);
  EXPECT_EQ(enabled.output,
            userFile_ +
                ": the print backend \"publishing\" was added. Programs that you start from "
                "now on will show the panel in their print dialogs.\n");
  EXPECT_THAT(enabled.errors, IsEmpty());
  EXPECT_EQ(run({"enable"}).output,
            "Nothing to do: " + userFile_ + " already lists \"publishing\".\n");
  const Outcome disabled = run({"disable"});
  EXPECT_EQ(disabled.status, 0);
  EXPECT_EQ(disabled.output, userFile_ +
                                 " was removed: it contained nothing but the print backend "
                                 "\"publishing\".\n");
  EXPECT_FALSE(std::filesystem::exists(userFile_));
  EXPECT_EQ(run({"disable"}).output,
            "Nothing to do: " + userFile_ + " does not list \"publishing\".\n");
  (void)folder_.file("user/gtk-3.0/settings.ini", "[Settings]\ngtk-print-backends=publishing");
  EXPECT_EQ(run({"disable"}).output,
            userFile_ + ": the print backend \"publishing\" was removed.\n");
}

TEST_F(PublishingExtension, WritesJSONForPrograms) {
  json expected = {{"backends", "lpr,publishing"},
                   {"change", {{"file", userFile_}, {"what", "written"}}},
                   {"enabled", true},
                   {"file", userFile_},
                   {"library", folder_ / "gtk/printbackends/libprintbackend-publishing.so"},
                   {"switchedOffBy", nullptr},
                   {"works", true}};
  (void)folder_.file("system/gtk-3.0/settings.ini", "[Settings]\ngtk-print-backends=lpr\n");
  EXPECT_EQ(json::parse(run({"enable", "--json"}).output), expected);
  expected["change"]["what"] = "none";
  EXPECT_EQ(json::parse(run({"enable", "--json"}).output), expected);
  expected.erase("change");
  EXPECT_EQ(status(), expected);
  expected["change"] = {{"file", userFile_}, {"what", "removed"}};
  expected["backends"] = "lpr";
  expected["enabled"] = false;
  expected["file"] = systemFile_;
  expected["works"] = false;
  EXPECT_EQ(json::parse(run({"disable", "--json"}).output), expected);
}

TEST_F(PublishingExtension, StatusTellsWhatIsMissing) {
  const Outcome fresh = run({"status"});
  EXPECT_EQ(fresh.status, 0);
  EXPECT_THAT(fresh.output, HasSubstr("not enabled by GTK's own setting: gtk-print-backends="));
  EXPECT_THAT(fresh.output, HasSubstr("\nlibrary: " + folder_.path()));
  (void)run({"enable"});
  EXPECT_THAT(run({"status"}).output, HasSubstr("enabled by " + userFile_));
  EXPECT_THAT(run({"status", "--system"}).output, HasSubstr("not enabled by GTK's own setting"));
  const Outcome without = run({"status"}, {{"GTK_PATH", "/nowhere"}});
  EXPECT_THAT(without.errors, HasSubstr("GTK cannot find libprintbackend-publishing.so"));
  EXPECT_THAT(without.output, Not(HasSubstr("library:")));
  std::filesystem::create_directories(folder_ / "user/publishing/dialog");
  const std::string rules =
      folder_.file("user/publishing/dialog/rules.ini", "[Dialog]\nExtension=false\n");
  EXPECT_EQ(run({"status"}, {{"PUBLISHING_EXTENSION", "1"}}).errors, "");
  const Outcome ruled = runProgram({"/usr/bin/env", "-u", "PUBLISHING_EXTENSION",
                                    PUBLISHING_PROGRAM, "extension", "status", "--json"},
                                   {{"XDG_CONFIG_HOME", folder_ / "user"}});
  EXPECT_EQ(json::parse(ruled.output)["switchedOffBy"], rules);
  for (const char* off : {"0", "off"}) {
    EXPECT_EQ(run({"status"}, {{"PUBLISHING_EXTENSION", off}}).errors,
              "publishing: PUBLISHING_EXTENSION still switches the panel off.\n");
  }
}

TEST_F(PublishingExtension, ASystemThatEnablesItIsNamed) {
  (void)folder_.file("system/gtk-3.0/settings.ini", "[Settings]\ngtk-print-backends=publishing\n");
  EXPECT_EQ(run({"enable"}).output,
            "Nothing to do: " + systemFile_ + " already lists \"publishing\".\n");
  EXPECT_FALSE(std::filesystem::exists(userFile_));
  const Outcome disabled = run({"disable"});
  EXPECT_EQ(disabled.status, 1);
  EXPECT_THAT(disabled.errors, AllOf(HasSubstr("still on, because " + systemFile_),
                                     HasSubstr("/user/publishing/dialog/rules.ini")));
}

TEST_F(PublishingExtension, AFileThatGtkDoesNotReadIsNamedAndKept) {
  const std::string broken = "[Settings]\ngarbage\n";
  (void)folder_.file("user/gtk-3.0/settings.ini", broken);
  for (const char* command : {"enable", "disable"}) {
    const Outcome outcome = run({command});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.errors, AllOf(HasSubstr("GTK does not understand " + userFile_),
                                      HasSubstr("Fix the file or move it away")));
    EXPECT_EQ(contentsOfFile(userFile_), broken);
  }
  EXPECT_THAT(run({"status"}).errors, HasSubstr("GTK ignores " + userFile_));
}

TEST_F(PublishingExtension, NeedsToBeToldWhatToDo) {
  EXPECT_EQ(run({}).status, 2);
  EXPECT_EQ(run({"toggle"}).status, 2);
  EXPECT_EQ(run({"--help"}).status, 0);
}

TEST_F(PublishingExtension, ChangesNothingInFoldersThatAreNotTheUsers) {
  std::filesystem::permissions(folder_ / "user/gtk-3.0", std::filesystem::perms::all);
  const Outcome outcome = run({"enable"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("anyone"), HasSubstr("nothing was changed")));
  EXPECT_FALSE(std::filesystem::exists(userFile_));
  // A relative folder is nobody's.
  std::filesystem::create_directories(folder_ / "home");
  EXPECT_EQ(run({"enable"}, {{"XDG_CONFIG_HOME", "relative"}, {"HOME", folder_ / "home"}}).status,
            0);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "home/.config/gtk-3.0/settings.ini"));
}

}  // namespace
}  // namespace publishing
