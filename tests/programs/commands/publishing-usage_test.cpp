// SPDX-License-Identifier: Apache-2.0
// Command lines that the program publishing cannot carry out, and what it says of them.
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
using ::testing::StartsWith;

using Words = std::vector<std::string>;

constexpr const char* kPPD = "tests/data/zephrel-ps-9000.ppd";
constexpr const char* kDocument = "tests/data/report.ps";

class PublishingUsage : public ::testing::Test {
 protected:
  [[nodiscard]] Outcome run(Words words, const std::string& language = "C") const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    return runProgram(words, {{"CUPS_SERVER", "127.0.0.1:1"},
                              {"XDG_CONFIG_HOME", folder_.path()},
                              {"PUBLISHING_LOCALE_DIR", LOCALE_FOLDER},
                              {"LANGUAGE", language}});
  }

  [[nodiscard]] Outcome dryRun(const Words& options) const {
    Words words = {"print", "--ppd", kPPD, "--dry-run", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    words.emplace_back(kDocument);
    return run(words);
  }

  TemporaryFolder folder_;
};

TEST_F(PublishingUsage, NamesTheFaultAndWhereHelpIs) {
  const struct {
    Words words;
    const char* message;
    const char* help;
  } cases[] = {
      {{}, "Name a command: print, sheets, media, pages", "Help: publishing --help"},
      {{"prnt"}, "There is no command \"prnt\". Did you mean print?", "Help: publishing --help"},
      {{"frobnicate"}, "There is no command \"frobnicate\".\n", "Help: publishing --help"},
      {{"settings"}, "Name a command: show, clear, remember.", "Help: publishing settings --help"},
      {{"settings", "shwo"}, "Did you mean show?", "Help: publishing settings --help"},
      {{"print"}, "FILE is missing.", "Help: publishing print --help"},
      {{"print", "--covr", "front", kDocument},
       "There is no option --covr. Did you mean --cover?",
       "Help: publishing print --help"},
      {{"print", "--wiat=5", kDocument}, "Did you mean --wait?", "Help: publishing print --help"},
      {{"pages", "5", "8"}, "\"8\" is one word too many.", "Help: publishing pages --help"},
      {{"print", "--title"}, "--title needs exactly one value", "Help: publishing print --help"},
      {{"print", "--ppd", kPPD, "-d", "q", kDocument},
       "--printer and --ppd exclude each other.",
       "Help: publishing print --help"},
  };
  for (const auto& [words, message, help] : cases) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 2) << message;
    EXPECT_EQ(outcome.output, "") << message;
    EXPECT_THAT(outcome.errors,
                AllOf(StartsWith("publishing: "), HasSubstr(message), HasSubstr(help)));
  }
}

TEST_F(PublishingUsage, IsToldAsJsonToo) {
  const struct {
    Words words;
    int status;
    const char* kind;
  } cases[] = {
      {{"prnt", "--json"}, 2, "usage"},
      {{"print", "--json", "--cover", "sideways", kDocument}, 2, "usage"},
      {{"print", "--json", "--ppd", kPPD, "--dry-run", "--insert", "5-5", kDocument}, 1, "refused"},
      {{"print", "--json", "-d", "Office", kDocument}, 3, "trouble"},
      {{"media", "--json", "--ppd", "/absent.ppd"}, 3, "trouble"},
      {{"settings", "show", "--json"}, 3, "trouble"},
  };
  for (const auto& [words, status, kind] : cases) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, status) << ::testing::PrintToString(words);
    const json error = json::parse(outcome.output)["error"];
    EXPECT_EQ(error["kind"], kind) << ::testing::PrintToString(words);
    EXPECT_EQ(outcome.errors, "publishing: " + error["message"].get<std::string>() + "\n");
  }
}

TEST_F(PublishingUsage, TakesNumbersAsTheyAreWritten) {
  EXPECT_EQ(json::parse(dryRun({"-n", "010"}).output)["options"]["copies"], "10");
  for (const char* number : {"", "x", "2x", " 2", "-2", "+2", "0x2", "99999999999", "2.5"}) {
    const Outcome outcome = dryRun({"--copies=" + std::string(number)});
    EXPECT_EQ(outcome.status, 2) << number;
    EXPECT_THAT(outcome.errors, HasSubstr("--copies")) << number;
  }
}

TEST_F(PublishingUsage, TakesAnEmptyWordForNoDefault) {
  for (const Words& words :
       {Words{"print", "-d", "", kDocument}, Words{"media", "-d", ""},
        Words{"settings", "show", "-d", ""}, Words{"settings", "clear", "-d", ""},
        Words{"print", "--ppd", kPPD, "--output", "", kDocument}}) {
    EXPECT_EQ(run(words).status, 2) << ::testing::PrintToString(words);
  }
}

TEST_F(PublishingUsage, OptionsTakeOneWord) {
  const Outcome sides = dryRun({"--cover", "front", "--cover-sides", "front-outside"});
  ASSERT_EQ(sides.status, 0) << sides.errors;
  EXPECT_EQ(json::parse(sides.output)["options"]["VtCoverModeValue"], "1");
  const Outcome none = dryRun({"--insert", "5", "--insert-sides", "none"});
  ASSERT_EQ(none.status, 0) << none.errors;
  EXPECT_EQ(json::parse(none.output)["options"]["VtPageinsertValue"], "0");
  EXPECT_EQ(dryRun({"--cover", "front", "--cover-sides", "none,front-outside"}).status, 2);
  EXPECT_EQ(dryRun({"--cover", "front", "--cover-sides", ""}).status, 2);
  EXPECT_EQ(dryRun({"--cover", "front", "--cover-sides", "front-outside,"}).status, 2);
}

TEST_F(PublishingUsage, NeedsNoDisplayForTheDialogsHelp) {
  const std::string program = PUBLISHING_PROGRAM "-dialog";
  const auto dialog = [&](const Words& words) {
    Words command = {program};
    command.insert(command.end(), words.begin(), words.end());
    return runProgram(command, {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}});
  };
  const Outcome help = dialog({"--help"});
  EXPECT_EQ(help.status, 0) << help.errors;
  EXPECT_THAT(help.output, StartsWith("Usage: publishing-dialog FILE\n"));
  EXPECT_EQ(dialog({}).status, 2);
  EXPECT_EQ(dialog({kDocument}).status, 3);
}

}  // namespace
}  // namespace publishing
