// SPDX-License-Identifier: Apache-2.0
// What reaches the terminal of whoever calls the program publishing, and what does not get through.
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
using ::testing::HasSubstr;
using ::testing::Not;

using Words = std::vector<std::string>;

constexpr const char* kPPD = "tests/data/zephrel-ps-9000.ppd";

// A title for the window, a bell, the line's begin, a colour by C1, text that runs backwards.
const std::string kHarm = "x\x1b]0;y\a\r\u009b31m\u202e\u2066\u2028z";

class PublishingTerminal : public ::testing::Test {
 protected:
  PublishingTerminal() : document_(folder_.file("document.ps", "%!PS\nshowpage\n")) {}

  [[nodiscard]] Outcome run(Words words,
                            std::map<std::string, std::string> environment = {}) const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    environment.insert({{"CUPS_SERVER", "127.0.0.1:1"}, {"XDG_CONFIG_HOME", folder_.path()}});
    return runProgram(words, environment);
  }

  // By a shell, with redirections.
  [[nodiscard]] Outcome shell(const std::string& redirections, Words words) const {
    words.insert(words.begin(),
                 {"/bin/sh", "-c", "exec \"$0\" \"$@\" " + redirections, PUBLISHING_PROGRAM});
    return runProgram(words, {{"CUPS_SERVER", "127.0.0.1:1"}, {"XDG_CONFIG_HOME", folder_.path()}});
  }

  TemporaryFolder folder_;
  std::string document_;
};

void expectHarmless(const Outcome& outcome) {
  for (const std::string& text : {outcome.output, outcome.errors}) {
    for (const char* harm : {"\x1b", "\a", "\r", "\u009b", "\u202e", "\u2066", "\u2028"})
      EXPECT_THAT(text, Not(HasSubstr(harm)));
  }
}

TEST_F(PublishingTerminal, IsNotSteeredByWhatUsersAndServersWrite) {
  const Words cases[] = {
      {kHarm},
      {"--" + kHarm},
      {"print", "--" + kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", kHarm},
      {"print", "--ppd", kHarm, "--dry-run", document_},
      {"print", "--ppd", kPPD, "--output", kHarm + "/out.ps", document_},
      {"print", "--ppd", kPPD, "--dry-run", "-t", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "--sides", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "-n", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "-P", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "-o", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "-o", "MediaType=" + kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "--cover", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "--cover", "front", "--cover-media", kHarm, document_},
      {"print", "--ppd", kPPD, "--dry-run", "--insert", kHarm, document_},
      {"media", "-d", kHarm},
      {"pages", kHarm},
      {"settings", "show", "-d", kHarm},
  };
  for (Words words : cases) {
    const Outcome outcome = run(words);
    EXPECT_NE(outcome.status, 0) << ::testing::PrintToString(words);
    EXPECT_NE(outcome.errors, "") << ::testing::PrintToString(words);
    expectHarmless(outcome);
    words.emplace_back("--json");
    expectHarmless(run(words));
  }
  expectHarmless(run({"media"}, {{"CUPS_SERVER", kHarm}}));
  expectHarmless(run({"media"}, {{"CUPS_SERVER", "/" + kHarm}}));
}

TEST_F(PublishingTerminal, GetsJsonThatIsTheSameToPrograms) {
  const std::string title = "\u202e \u009b";
  const std::string ppd = folder_.file("odd.ppd", [&] {
    std::string text = contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD);
    text.replace(text.find("Tray 2:"), 6, "Tray\u2066 2");
    return text;
  }());
  const Outcome outcome = run({"media", "--ppd", ppd, "--json"});
  expectHarmless(outcome);
  EXPECT_EQ(json::parse(outcome.output)["printer"], ppd);
}

TEST_F(PublishingTerminal, LostOutputIsTrouble) {
  const Words dryRun = {"print", "--ppd", kPPD, "--dry-run", "--json", document_};
  for (const char* redirection : {">/dev/full", ">&-"}) {
    for (const Words& words :
         {Words{"pages", "5"}, Words{"pages", "--json", "5"}, dryRun, Words{"--help"},
          Words{"--version"}, Words{"media", "--ppd", kPPD}}) {
      const Outcome outcome = shell(redirection, words);
      EXPECT_EQ(outcome.status, 3) << redirection << ::testing::PrintToString(words);
      EXPECT_THAT(outcome.errors, HasSubstr("output could not be written"));
    }
  }
}

TEST_F(PublishingTerminal, ClosedStreamsAreNoOthers) {
  const std::string output = folder_ / "out.ps";
  const Outcome outcome =
      shell("<&- 2>&-", {"print", "--ppd", kPPD, "--output", output, document_});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(contentsOfFile(output), ::testing::StartsWith("%!PS"));
  // The message has nowhere to go.
  EXPECT_EQ(shell("2>&-", {"pages", "x"}).status, 1);
}

}  // namespace
}  // namespace publishing
