// SPDX-License-Identifier: Apache-2.0
// What the program publishing makes of documents, options and defaults on its way to the server.
#include <fstream>
#include <memory>
#include <sstream>

#include <gmock/gmock.h>

#include "tests/programs/commands/PublishingOnServer.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;

class PublishingJobs : public PublishingOnServer {
 protected:
  // Prints and answers the job's number; 0, with a failure, when it did not.
  int printed(const Outcome& outcome) const {
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome.status == 0 ? json::parse(outcome.output)["job"].get<int>() : 0;
  }

  int printed(const Words& options) const {
    Words words = {"--wait", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    return printed(print(words));
  }

  // The user's default options for the queue.
  void setDefaults(const Words& options) const {
    Words words = {"lpoptions", "-p", kQueue};
    for (const std::string& option : options)
      words.insert(words.end(), {"-o", option});
    ASSERT_EQ(cups(words).status, 0);
  }

  [[nodiscard]] std::string features(int job) const { return cups_.received(job, "data"); }
};

TEST_F(PublishingJobs, TakesStandardInputAndPipes) {
  for (const std::string& script :
       {std::string("cat ") + kReport + " | \"$@\" -", "\"$@\" - <" + std::string(kReport)}) {
    const int job = printed(shell(script, {"print", "-d", kQueue, "--wait", "--json"}));
    EXPECT_THAT(cups_.received(job, "data"), HasSubstr("%%Pages: 24")) << script;
    EXPECT_THAT(cups_.received(job, "argv"), HasSubstr("(stdin)"));
  }
  const std::string pipe = home_ / "pipe";
  const int job =
      printed(shell("mkfifo '" + pipe + "'; cat " + kReport + " >'" + pipe + "' & \"$@\"",
                    {"print", "-d", kQueue, "--wait", "--json", pipe}));
  EXPECT_THAT(cups_.received(job, "data"), HasSubstr("%%Pages: 24"));
}

TEST_F(PublishingJobs, LookAtStandardInputBeforeAnythingIsStored) {
  const std::ptrdiff_t before = jobs();
  for (const char* script : {"printf 'Dear Sir' | \"$@\"", "\"$@\" </dev/null", "\"$@\" <&-"}) {
    const Outcome outcome =
        shell(script, {"print", "-d", kQueue, "--cover", "front", "--remember", "-"});
    EXPECT_EQ(outcome.status, 3) << script;
    EXPECT_THAT(outcome.errors, HasSubstr("(standard input)")) << script;
  }
  EXPECT_EQ(jobs(), before);
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(PublishingJobs, SendSeveralDocumentsAsOne) {
  const std::ptrdiff_t before = jobs();
  const int job =
      printed(run({"print", "-d", kQueue, "--wait", "--json", TEST_DATA "/report.ps", kReport}));
  EXPECT_GT(job, 0);
  EXPECT_EQ(jobs(), before + 1);
  const Outcome documents = cups({"lpstat", "-l", "-W", "completed", "-o"});
  EXPECT_EQ(documents.status, 0);
}

TEST_F(PublishingJobs, TakeOptionsAsLpDoes) {
  const int job = printed({"-n", "2", "-P", "1-2,5", "-o", "fit-to-page", "-o", "nomirror", "-o",
                           "Resolution=600dpi", "-t", "Two copies"});
  EXPECT_THAT(cups_.receivedOptions(job),
              ::testing::IsSupersetOf({Pair("collate", "true"), Pair("page-ranges", "1-2,5"),
                                       Pair("fit-to-page", "true"), Pair("mirror", "false")}));
  EXPECT_EQ(cups_.receivedOptions(printed(Words{"-n", "2", "-o", "collate=false"}))["collate"],
            "false");
}

TEST_F(PublishingJobs, ChooseTrueAndFalseOfThePPDsOptions) {
  const std::string text = contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd") +
                           "*OpenUI *ZphProof/Proof: Boolean\n*DefaultZphProof: False\n"
                           "*ZphProof True/Yes: \"% proof\"\n*ZphProof False/No: \"% final\"\n"
                           "*CloseUI: *ZphProof\n";
  cups_.addQueue("Proofs", home_.file("proofs.ppd", text));
  for (const char* option : {"ZphProof=True", "ZphProof=true", "ZphProof"}) {
    const int job =
        printed(run({"print", "-d", "Proofs", "--wait", "--json", "-o", option, kReport}));
    EXPECT_THAT(features(job), HasSubstr("%%BeginFeature: *ZphProof True")) << option;
  }
  const int job =
      printed(run({"print", "-d", "Proofs", "--wait", "--json", "-o", "noZphProof", kReport}));
  EXPECT_THAT(features(job), HasSubstr("%%BeginFeature: *ZphProof False"));
}

TEST_F(PublishingJobs, CarryAListOfAllPagesThatThePanelAccepts) {
  const std::string list = "100-109,111-120,122-131,133-142,144-153,155-164,166-175";
  const int job = printed({"--insert", list});
  const std::string arrived = cups_.receivedOptions(job)["VtPageinsertNums"];
  EXPECT_EQ(std::count(arrived.begin(), arrived.end(), ','), 70);
  EXPECT_THAT(arrived, ::testing::EndsWith("174,175,"));
}

TEST_F(PublishingJobs, OffIsOff) {
  ASSERT_EQ(print({"--cover", "front", "--cover-media", "Tray2", "--insert", "4", "--insert-media",
                   "Tray3", "--remember"})
                .status,
            0);
  const int off = printed({"--cover", "none", "--insert", "none"});
  EXPECT_THAT(features(off),
              AllOf(Not(HasSubstr("CoverMediaType Tray2")), Not(HasSubstr("PageMediaType Tray3"))));
  EXPECT_THAT(cups_.received(off, "options"),
              AllOf(Not(HasSubstr("CoverMediaType")), Not(HasSubstr("PageMediaType"))));
  // A cover that is off conflicts with no tray.
  EXPECT_EQ(
      print({"--cover", "none", "--insert", "none", "-o", "InputSlot=Tray2", "--dry-run"}).status,
      0);
}

TEST_F(PublishingJobs, OffIsOffThoughTheDefaultsHaveAMedium) {
  setDefaults({"CoverMediaType=Tray2", "PageMediaType=Tray3"});
  const int off = printed(Words{});
  EXPECT_THAT(features(off), AllOf(HasSubstr("%%BeginFeature: *CoverMediaType PrnDef"),
                                   Not(HasSubstr("PageMediaType Tray3"))));
  EXPECT_THAT(cups_.receivedOptions(off), AllOf(Contains(Pair("CoverMediaType", "PrnDef")),
                                                Contains(Pair("PageMediaType", "PrnDef"))));
}

TEST_F(PublishingJobs, KeepAMediumThatWasChosenAsAnOption) {
  EXPECT_THAT(features(printed({"--cover", "front", "-o", "CoverMediaType=Tray2"})),
              HasSubstr("%%BeginFeature: *CoverMediaType Tray2"));
  setDefaults({"PageMediaType=Tray3"});
  EXPECT_THAT(features(printed({"--insert", "4"})),
              HasSubstr("%%BeginFeature: *PageMediaType Tray3"));
  EXPECT_THAT(features(printed({"--insert", "4", "--insert-media", "Thick"})),
              HasSubstr("%%BeginFeature: *PageMediaType Thick"));
  const Outcome none = print({"--cover", "front", "-o", "CoverMediaType=None", "--dry-run"});
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.errors, HasSubstr("CoverMediaType=None contradicts"));
}

TEST_F(PublishingJobs, PassByNoRuleOfThePanel) {
  for (const char* option : {"number-up=4", "outputorder=reverse", "OutputOrder=Reverse",
                             "page-delivery=reverse-order-face-up", "booklet=true"}) {
    for (const Words& wish : {Words{"--cover", "front"}, Words{"--insert", "5"}}) {
      Words words = {"--dry-run", "-o", option};
      words.insert(words.end(), wish.begin(), wish.end());
      const Outcome outcome = print(words);
      EXPECT_EQ(outcome.status, 1) << option;
      EXPECT_THAT(outcome.errors, HasSubstr("several pages per side")) << option;
    }
  }
  const Outcome clash = print({"--dry-run", "--number-up", "2", "-o", "number-up=4"});
  EXPECT_EQ(clash.status, 1);
  EXPECT_THAT(clash.errors, HasSubstr("number-up=4 contradicts"));
  EXPECT_EQ(print({"--dry-run", "--sides", "one-sided", "-o", "Duplex=DuplexTumble"}).status, 1);
}

TEST_F(PublishingJobs, NameTheDefaultOptionsThatRuleOutCovers) {
  setDefaults({"number-up=2"});
  const Outcome outcome = print({"--cover", "front", "--dry-run"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("lpoptions -p Zephrel_PS_9000"));
  EXPECT_EQ(print({"--cover", "front", "--number-up", "1", "--dry-run"}).status, 0);
}

TEST_F(PublishingJobs, LeaveRememberedCoversOutWhereTheLayoutForbidsThemAndSaySo) {
  ASSERT_EQ(print({"--cover", "front", "--insert", "4", "--remember"}).status, 0);
  const json before = stored();
  const Outcome outcome = print({"-o", "number-up=4", "--remember", "--wait", "--json"});
  const int job = printed(outcome);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("left out"), HasSubstr("Nothing was remembered")));
  EXPECT_EQ(cups_.receivedOptions(job)["VtCoverModeState"], "Off");
  EXPECT_EQ(stored(), before);
}

TEST_F(PublishingJobs, NameTheWayOutOfARememberedList) {
  std::filesystem::create_directories(config_ / "publishing");
  std::ofstream(config_ / "publishing/" + std::string(kQueue) + ".conf")
      << "[Publishing]\nVtPageinsertState=On\nVtPageinsertNums=5-5\nVtPageinsertValue=0\nVtPiIndex="
         "0\nPageMediaType=PrnDef\n";
  const Outcome outcome = print({"--dry-run"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("5-5"), HasSubstr("--fresh"), HasSubstr("--insert")));
  EXPECT_EQ(print({"--dry-run", "--fresh"}).status, 0);
}

TEST_F(PublishingJobs, AreNotPrintedOnAnotherMediumThanTheRememberedOne) {
  const std::string text = contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd");
  cups_.addQueue("Changing", home_.file("before.ppd", text));
  const auto print = [&](Words options) {
    options.insert(options.begin(), {"print", "-d", "Changing"});
    options.emplace_back(kReport);
    return run(options);
  };
  ASSERT_EQ(print({"--cover", "front", "--cover-media", "Leather", "--remember"}).status, 0);
  std::string without;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const bool isGone = line.find("CoverMediaType Leather") != std::string::npos;
    if (!isGone) without += line + '\n';
  }
  cups_.addQueue("Changing", home_.file("after.ppd", without));
  for (const Words& options : {Words{}, Words{"--insert", "5"}}) {
    const Outcome outcome = print(options);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, AllOf(HasSubstr("Leather"), HasSubstr("--fresh")));
  }
  EXPECT_EQ(print({"--cover", "none", "--dry-run"}).status, 0);
  EXPECT_EQ(print({"--fresh", "--dry-run"}).status, 0);
}

TEST_F(PublishingJobs, StoreNothingInFoldersThatAreNotTheUsers) {
  std::map<std::string, std::string> place = environment();
  const auto remember = [&] {
    return runProgram(
        {PUBLISHING_PROGRAM, "print", "-d", kQueue, "--cover", "front", "--remember", kReport},
        place);
  };
  // The folder of the test program, were it taken for the home, would be the sources'.
  place["XDG_CONFIG_HOME"] = "relative";
  EXPECT_EQ(remember().status, 0);
  EXPECT_TRUE(std::filesystem::exists(home_ / ".config/publishing"));
  EXPECT_FALSE(std::filesystem::exists(SOURCE_FOLDER "/relative"));
  place["XDG_CONFIG_HOME"] = config_.path();
  std::filesystem::permissions(config_.path(), std::filesystem::perms::all);
  const std::ptrdiff_t before = jobs();
  const Outcome outcome = remember();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr(config_.path()), HasSubstr("anyone")));
  EXPECT_EQ(jobs(), before);
}

// As many as a user's scripts may start at once.
TEST_F(PublishingJobs, RememberedAtOnceLeaveOneWholeFile) {
  std::vector<std::unique_ptr<RunningProgram>> programs;
  const auto start = [&] {
    programs.push_back(std::make_unique<RunningProgram>(
        std::vector<std::string>{PUBLISHING_PROGRAM, "print", "-d", kQueue, "--insert", "4,7",
                                 "--remember", TEST_DATA "/report.ps"},
        environment()));
  };
  for (int number = 0; number < 20; ++number)
    start();
  for (const auto& program : programs)
    EXPECT_EQ(program->finish().status, 0);
  programs.clear();
  for (int number = 0; number < 10; ++number)
    start();
  programs.clear();  // killed
  // Takes along what one left that was killed at the moment in which its file got the name.
  ASSERT_EQ(print({"--insert", "4,7", "--remember"}).status, 0);
  EXPECT_EQ(stored()["VtPageinsertState"], "On");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(config_ / "publishing"), {}), 1);
}

TEST_F(PublishingJobs, UseTheOptionsOfAnInstance) {
  ASSERT_EQ(
      cups({"lpoptions", "-p", std::string(kQueue) + "/draft", "-o", "MediaType=Recycled"}).status,
      0);
  const std::string instance = std::string(kQueue) + "/draft";
  EXPECT_THAT(features(printed(run({"print", "-d", instance, "--wait", "--json", kReport}))),
              HasSubstr("%%BeginFeature: *MediaType Recycled"));
  const Outcome unknown = run({"print", "-d", std::string(kQueue) + "/none", kReport});
  EXPECT_EQ(unknown.status, 3);
  EXPECT_THAT(unknown.errors, HasSubstr("has no instance none"));
}

TEST_F(PublishingJobs, AreNotSentToAQueueThatRejectsThem) {
  const std::ptrdiff_t before = jobs();
  ASSERT_EQ(cups({"cupsreject", kQueue}).status, 0);
  const Outcome outcome = print({"--cover", "front", "--remember", "--json"});
  ASSERT_EQ(cups({"cupsaccept", kQueue}).status, 0);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(json::parse(outcome.output)["error"]["kind"], "refused");
  EXPECT_THAT(outcome.errors, HasSubstr("cupsaccept Zephrel_PS_9000"));
  EXPECT_EQ(jobs(), before);
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(PublishingJobs, WaitInAPausedQueueWhichIsSaidBefore) {
  ASSERT_EQ(cups({"cupsdisable", kQueue}).status, 0);
  const Outcome outcome = print({"--json"});
  ASSERT_EQ(cups({"cupsenable", kQueue}).status, 0);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("Zephrel_PS_9000 is paused"));
}

TEST_F(PublishingJobs, TellAQueueThatTheEnvironmentNames) {
  std::map<std::string, std::string> named = environment();
  named["PRINTER"] = "nosuch";
  const Outcome outcome = runProgram({PUBLISHING_PROGRAM, "media"}, named);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("nosuch"), HasSubstr("PRINTER"), HasSubstr(kQueue)));
}

TEST_F(PublishingJobs, TellAFullTemporaryFolderFromABadPPD) {
  const std::string folder = home_ / "tmp";
  std::filesystem::create_directory(folder);
  // Files of 2 KiB at most: the next write fails, as in a full folder.
  const Outcome outcome = shell("trap '' XFSZ; ulimit -f 4; export TMPDIR='" + folder + "'; \"$@\"",
                                {"media", "-d", kQueue});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors,
              AllOf(HasSubstr(kQueue), HasSubstr("cannot be kept in the temporary folder"),
                    HasSubstr("TMPDIR"), Not(HasSubstr("damaged"))));
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(PublishingJobs, TellAPPDBehindAPasswordFromNoPPD) {
  const Outcome started =
      runProgram({PRIVATE_CUPS, "start", home_ / "cups", "", "<Location /printers/Locked>",
                  "AuthType Basic", "Require valid-user", "</Location>"});
  ASSERT_EQ(started.status, 0) << started.errors;
  std::map<std::string, std::string> there = environment();
  there["CUPS_SERVER"] = started.output.substr(12, started.output.find('\n') - 12);
  EXPECT_EQ(runProgram({PRIVATE_CUPS, "add-queue", home_ / "cups", "Locked",
                        TEST_DATA "/zephrel-ps-9000.ppd"})
                .status,
            0);
  const Outcome outcome = runProgram({PUBLISHING_PROGRAM, "media", "-d", "Locked"}, there);
  EXPECT_EQ(outcome.status, 3) << outcome.output;
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("Locked"), HasSubstr("did not provide the PPD")));
  EXPECT_EQ(runProgram({PRIVATE_CUPS, "stop", home_ / "cups"}).status, 0);
}

}  // namespace
}  // namespace publishing
