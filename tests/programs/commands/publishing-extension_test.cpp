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
using ::testing::EndsWith;
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
    std::map<std::string, std::string> variables = {{"XDG_CONFIG_HOME", folder_ / "user"},
                                                    {"XDG_CONFIG_DIRS", folder_ / "system"},
                                                    {"GTK_DATA_PREFIX", folder_ / "data"},
                                                    {"GTK_EXE_PREFIX", folder_ / "data"},
                                                    {"GTK_PATH", folder_ / "gtk"},
                                                    {"PUBLISHING_EXTENSION", "1"},
                                                    {"PUBLISHING_QT_PLUGINS", folder_ / "qt"},
                                                    {"QT_PLUGIN_PATH", ""}};
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
  // What GTK's state was all that there was; that of other toolkits came later.
  const auto withoutToolkits = [](const Outcome& outcome) {
    json result = json::parse(outcome.output);
    EXPECT_EQ(result["toolkits"]["gtk3"]["works"], result["works"]);
    result.erase("toolkits");
    return result;
  };
  (void)folder_.file("system/gtk-3.0/settings.ini", "[Settings]\ngtk-print-backends=lpr\n");
  EXPECT_EQ(withoutToolkits(run({"enable", "--json"})), expected);
  expected["change"]["what"] = "none";
  EXPECT_EQ(withoutToolkits(run({"enable", "--json"})), expected);
  expected.erase("change");
  EXPECT_EQ(withoutToolkits(run({"status", "--json"})), expected);
  expected["change"] = {{"file", userFile_}, {"what", "removed"}};
  expected["backends"] = "lpr";
  expected["enabled"] = false;
  expected["file"] = systemFile_;
  expected["works"] = false;
  EXPECT_EQ(withoutToolkits(run({"disable", "--json"})), expected);
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

// A folder as the package for GTK 4 has it.
class PublishingGtk4Extension : public PublishingExtension {
 protected:
  PublishingGtk4Extension() {
    std::filesystem::create_directories(module_.parent_path());
    (void)folder_.file("gtk/4.0.0/printbackends/libprintbackend-publishing.so", "");
    (void)folder_.file("gtk/4.0.0/printbackends/giomodule.cache",
                       "libprintbackend-publishing.so: gtk-print-backend\n");
  }

  [[nodiscard]] json gtk4(const std::vector<std::string>& words,
                          const std::map<std::string, std::string>& environment = {}) const {
    return json::parse(run(words, environment).output)["toolkits"]["gtk4"];
  }

  std::filesystem::path module_ = folder_ / "gtk/4.0.0/printbackends/libprintbackend-publishing.so";
  std::string file_ = folder_ / "user/gtk-4.0/settings.ini";
};

TEST_F(PublishingGtk4Extension, IsSwitchedOnInItsOwnSettingsAndOffWithoutATrace) {
  EXPECT_THAT(run({"status"}).output, HasSubstr("\nGTK 4: not enabled\n"));
  const Outcome enabled = run({"enable"});
  EXPECT_EQ(enabled.status, 0) << enabled.errors;
  EXPECT_EQ(enabled.errors, "");
  for (const std::string& file : {userFile_, file_})
    EXPECT_THAT(enabled.output, HasSubstr(file + ": the print backend \"publishing\" was added."));
  const std::string list = gtk4({"status", "--json"})["backends"];
  EXPECT_THAT(list, AllOf(HasSubstr("cups"), HasSubstr("file"), EndsWith(",publishing")));
  EXPECT_THAT(contentsOfFile(file_), HasSubstr("\n[Settings]\ngtk-print-backends=" + list + "\n"));
  EXPECT_THAT(run({"status"}).output, HasSubstr("\nGTK 4: enabled by " + file_ + "\n"));
  EXPECT_EQ(gtk4({"status", "--json"}), (json{{"backends", list},
                                              {"cached", true},
                                              {"enabled", true},
                                              {"file", file_},
                                              {"library", module_},
                                              {"works", true}}));
  EXPECT_EQ(gtk4({"enable", "--json"})["change"]["what"], "none");
  EXPECT_EQ(gtk4({"status", "--json"}, {{"PUBLISHING_EXTENSION", "0"}})["works"], false);
  EXPECT_THAT(run({"disable"}).output, HasSubstr(file_ + " was removed"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "user/gtk-4.0"));
  EXPECT_THAT(run({"disable"}).output,
              HasSubstr("Nothing to do: " + file_ + " does not list \"publishing\".\n"));
}

TEST_F(PublishingGtk4Extension, IsLeftAloneWhereThePackageIsMissing) {
  (void)run({"enable"});
  std::filesystem::remove(module_);
  EXPECT_THAT(run({"status"}).output,
              HasSubstr("\nGTK 4: not installed (package publishing-gtk4)\n"));
  EXPECT_EQ(gtk4({"status", "--json"})["works"], false);
  // What it wrote is taken back all the same.
  EXPECT_THAT(run({"disable"}).output, HasSubstr(file_ + " was removed"));
  EXPECT_THAT(run({"enable"}).output, Not(HasSubstr("gtk-4.0")));
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(PublishingGtk4Extension, AModuleThatGioDoesNotKnowYetIsReported) {
  EXPECT_EQ(run({"status"}).errors, "");
  std::filesystem::remove(folder_ / "gtk/4.0.0/printbackends/giomodule.cache");
  for (const char* command : {"status", "enable"}) {
    EXPECT_THAT(run({command}).errors,
                HasSubstr("gio-querymodules " + module_.parent_path().string() + "\n"));
  }
  EXPECT_EQ(gtk4({"status", "--json"})["cached"], false);
}

TEST_F(PublishingGtk4Extension, OneToolkitCanBeNamed) {
  EXPECT_EQ(run({"enable", "--toolkit", "gtk4"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(file_));
  EXPECT_FALSE(std::filesystem::exists(userFile_));
  EXPECT_EQ(run({"disable", "--toolkit", "gtk3"}).output,
            "Nothing to do: " + userFile_ + " does not list \"publishing\".\n");
  EXPECT_EQ(run({"status", "--toolkit", "gtk4"}).output, "GTK 4: enabled by " + file_ + "\n");
  EXPECT_EQ(run({"disable", "--toolkit", "gtk4"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(file_));
  EXPECT_EQ(run({"enable", "--toolkit", "gtk2"}).status, 2);
}

TEST_F(PublishingGtk4Extension, ASystemThatEnablesItIsNamed) {
  std::filesystem::create_directories(folder_ / "system/gtk-4.0");
  const std::string system = folder_.file("system/gtk-4.0/settings.ini",
                                          "[Settings]\ngtk-print-backends=file,publishing\n");
  EXPECT_THAT(run({"enable"}).output,
              HasSubstr("Nothing to do: " + system + " already lists \"publishing\".\n"));
  const Outcome disabled = run({"disable"});
  EXPECT_EQ(disabled.status, 1);
  EXPECT_THAT(disabled.errors, HasSubstr("still on, because " + system));
}

// A folder as the packages for Qt have it; `check` is what looks whether Qt can load the panel.
class PublishingQtExtension : public PublishingExtension {
 protected:
  PublishingQtExtension() {
    std::filesystem::create_directories(folder_ / "qt/printsupport");
    (void)folder_.file("qt/printsupport/libpublishing-print6.so", "");
    writeCheck("exit 0");
  }

  void writeCheck(const std::string& script) {
    const std::string check =
        folder_.file("qt/publishing-qt6-check", "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(check, std::filesystem::perms::owner_all);
  }

  [[nodiscard]] json qt(const std::vector<std::string>& words,
                        const std::map<std::string, std::string>& environment = {}) const {
    return json::parse(run(words, environment).output)["toolkits"]["qt"];
  }

  std::string file_ = folder_ / "user/environment.d/60-publishing.conf";
};

TEST_F(PublishingQtExtension, IsSwitchedOnForTheNextLoginAndOffWithoutATrace) {
  EXPECT_THAT(run({"status"}).output, HasSubstr("\nQt: not enabled\n"));
  const Outcome enabled = run({"enable"});
  EXPECT_EQ(enabled.status, 0) << enabled.errors;
  EXPECT_THAT(enabled.output, AllOf(HasSubstr(file_), HasSubstr("once you have logged in again")));
  EXPECT_THAT(contentsOfFile(file_), HasSubstr("\nQT_PLUGIN_PATH=" + folder_ / "qt" +
                                               "${QT_PLUGIN_PATH:+:$QT_PLUGIN_PATH}\n"));
  EXPECT_THAT(run({"status"}).output, HasSubstr("from your next login on"));
  const json state = qt({"status", "--json"}, {{"QT_PLUGIN_PATH", "/a:" + folder_ / "qt"}});
  EXPECT_EQ(state, (json{{"enabled", true},
                         {"faults", json::array()},
                         {"file", file_},
                         {"folder", folder_ / "qt"},
                         {"session", true},
                         {"versions", {6}},
                         {"works", true}}));
  EXPECT_EQ(qt({"enable", "--json"})["change"]["what"], "none");
  EXPECT_THAT(run({"disable"}).output, HasSubstr(file_ + " was removed"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "user/environment.d"));
}

TEST_F(PublishingQtExtension, IsTriedBeforeAProgramCouldLoseItsPrinters) {
  ASSERT_EQ(run({"enable"}).status, 0);
  writeCheck("echo no such symbol >&2; exit 1");
  const Outcome refused = run({"enable"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr("Qt 6 cannot load the panel: no such symbol"));
  EXPECT_FALSE(std::filesystem::exists(file_));
  std::filesystem::remove(folder_ / "qt/publishing-qt6-check");
  EXPECT_EQ(qt({"enable", "--json"})["faults"].size(), 1U);
}

TEST_F(PublishingQtExtension, IsNotSwitchedOnInAFolderThatAnyoneCanWriteTo) {
  const std::filesystem::path folder = folder_ / "user/environment.d";
  std::filesystem::create_directories(folder);
  std::filesystem::permissions(folder, std::filesystem::perms::all);
  const Outcome refused = run({"enable", "--toolkit", "qt"});
  EXPECT_EQ(refused.status, 3);
  EXPECT_THAT(refused.errors, AllOf(HasSubstr(file_ + " cannot be changed: anyone can write to"),
                                    HasSubstr("nothing was changed")));
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(PublishingQtExtension, LeavesAForeignFileAlone) {
  std::filesystem::create_directories(folder_ / "user/environment.d");
  (void)folder_.file("user/environment.d/60-publishing.conf", "QT_PLUGIN_PATH=/mine\n");
  for (const char* command : {"enable", "disable"}) {
    const Outcome outcome = run({command});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.errors, HasSubstr(file_ + " was not written by this program"));
  }
  EXPECT_EQ(contentsOfFile(file_), "QT_PLUGIN_PATH=/mine\n");
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
