// SPDX-License-Identifier: Apache-2.0
// How the program publishing follows a job to its end, and what it says when it does not.
#include <csignal>
#include <fstream>

#include <gmock/gmock.h>

#include "tests/programs/commands/PublishingOnServer.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

class PublishingWaiting : public PublishingOnServer {
 protected:
  void block() const { std::ofstream(cups_.out() + "/block"); }
};

// A header is enough to be taken for a PDF, and too little for the filters.
TEST_F(PublishingWaiting, EndsWhenAFilterFails) {
  const std::string broken = home_.file("broken.pdf", "%PDF-1.7\n");
  const Outcome outcome = run({"print", "-d", kQueue, "--wait=60", "--json", broken});
  EXPECT_EQ(outcome.status, 1);
  const json report = json::parse(outcome.output);
  EXPECT_EQ(report["state"], "failed");
  EXPECT_EQ(report["error"]["kind"], "refused");
  const std::string job = std::to_string(report["job"].get<int>());
  EXPECT_THAT(outcome.errors,
              AllOf(HasSubstr("Job " + job), HasSubstr("cancel Zephrel_PS_9000-" + job)));
}

TEST_F(PublishingWaiting, ShowsOnATerminalHowMuchWasSent) {
  // script(1) runs it on a terminal and shows what appears there.
  const Outcome shown =
      shell("script -q -e -c \"$*\" /dev/null", {"print", "-d", kQueue, "--wait=60", kReport});
  EXPECT_EQ(shown.status, 0) << shown.errors;
  EXPECT_THAT(shown.output, HasSubstr("\r\x1b[KSending report.pdf: 100 %"));
  const Outcome piped = print({"--wait=60"});
  EXPECT_EQ(piped.status, 0);
  EXPECT_THAT(piped.output + piped.errors, Not(HasSubstr("Sending")));
}

// A server that keeps no record forgets a job at the moment it is done.
TEST_F(PublishingWaiting, TakesAJobThatTheServerForgotForDone) {
  const Outcome started =
      runProgram({PRIVATE_CUPS, "start", home_ / "cups", "", "PreserveJobHistory No"});
  ASSERT_EQ(started.status, 0) << started.errors;
  const std::string server = started.output.substr(12, started.output.find('\n') - 12);
  EXPECT_EQ(runProgram({PRIVATE_CUPS, "add-queue", home_ / "cups", "Forgetful",
                        TEST_DATA "/zephrel-ps-9000.ppd"})
                .status,
            0);
  std::map<std::string, std::string> there = environment();
  there["CUPS_SERVER"] = server;
  const Outcome outcome = runProgram(
      {PUBLISHING_PROGRAM, "print", "-d", "Forgetful", "--wait=60", "--json", kReport}, there);
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(json::parse(outcome.output)["state"], "forgotten");
  EXPECT_THAT(outcome.errors, HasSubstr("keeps no record"));
  EXPECT_THAT(contentsOfFile(home_ / "cups/out/job-1/data"), HasSubstr("%!PS"));
  EXPECT_EQ(runProgram({PRIVATE_CUPS, "stop", home_ / "cups"}).status, 0);
}

TEST_F(PublishingWaiting, EndsAfterTheGivenSeconds) {
  block();
  const Outcome outcome = print({"--wait=1", "--json"});
  EXPECT_EQ(outcome.status, 3);
  const json report = json::parse(outcome.output);
  EXPECT_EQ(report["state"], "unfinished");
  EXPECT_EQ(report["error"]["kind"], "trouble");
  EXPECT_THAT(outcome.errors,
              HasSubstr("cancel Zephrel_PS_9000-" + std::to_string(report["job"].get<int>())));
}

TEST_F(PublishingWaiting, SaysThatTheJobGoesOnWhenItIsInterrupted) {
  block();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    RunningProgram program({PUBLISHING_PROGRAM, "print", "-d", kQueue, "--wait", "--json", kReport},
                           environment());
    ASSERT_TRUE(program.saidError("is being printed"));
    program.signal(signal);
    const Outcome outcome = program.finish();
    EXPECT_EQ(outcome.signal, signal);
    const json report = json::parse(outcome.output);
    EXPECT_EQ(report["state"], "unfinished");
    EXPECT_THAT(outcome.errors, HasSubstr("goes on. To cancel it: cancel Zephrel_PS_9000-" +
                                          std::to_string(report["job"].get<int>())));
    cups({"cancel", "-a", kQueue});
  }
}

}  // namespace
}  // namespace publishing
