// SPDX-License-Identifier: Apache-2.0
// The program publishing as a user calls it, against a real print server.
#include <fstream>

#include <gmock/gmock.h>

#include "tests/programs/commands/PublishingOnServer.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PrivateCups);

TEST_F(PublishingOnServer, PrintsCoversAndInserts) {
  const Outcome outcome =
      print({"--sides", "two-sided-long-edge", "--cover", "front-back", "--cover-media", "Tray2",
             "--cover-sides", "front-outside", "--insert", "5,8,12-14", "--insert-media", "Tray3",
             "--wait", "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json report = json::parse(outcome.output);
  EXPECT_EQ(report["state"], "completed");
  EXPECT_THAT(outcome.errors,
              HasSubstr(std::string("publishing printer enable -d ") + kQueue + "\n"));

  const int job = report["job"];
  EXPECT_THAT(cups_.received(job, "data"),
              AllOf(HasSubstr("%%BeginFeature: *CoverMediaType Tray2"),
                    HasSubstr("%%BeginFeature: *PageMediaType Tray3"),
                    HasSubstr("%%BeginFeature: *Duplex DuplexNoTumble")));
  EXPECT_THAT(cups_.receivedOptions(job),
              ::testing::IsSupersetOf(
                  {Pair("VtCoverModeState", "On"), Pair("VtCoverModeValue", "1"),
                   Pair("VtPageinsertNums", "5,8,12,13,14,"), Pair("CoverMediaType", "Tray2"),
                   Pair("sides", "two-sided-long-edge")}));
}

TEST_F(PublishingOnServer, RemembersTheChoicesOfEachQueue) {
  ASSERT_EQ(print({"--cover", "front", "--insert", "4,7", "--remember"}).status, 0);
  EXPECT_EQ(stored()["VtPageinsertNums"], "4,7");
  EXPECT_THAT(stored("Second"), IsEmpty());

  const auto summary = [this](const Words& options) {
    Words words = {"--dry-run", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    return json::parse(print(words).output)["summary"];
  };
  EXPECT_EQ(summary({}), json({{"Cover Mode", "On"}, {"Page Insert", "On"}}));
  EXPECT_EQ(summary({"--fresh"}), json({{"Cover Mode", "Off"}, {"Page Insert", "Off"}}));
  EXPECT_EQ(summary({"--insert", "none"}), json({{"Cover Mode", "On"}, {"Page Insert", "Off"}}));

  EXPECT_EQ(run({"settings", "clear", "-d", kQueue}).status, 0);
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(PublishingOnServer, RemembersNothingForAQueueThatItIsSwitchedOffFor) {
  ASSERT_EQ(print({"--cover", "front", "--remember"}).status, 0);
  const Outcome off = run({"settings", "remember", "-d", kQueue, "off", "--json"});
  ASSERT_EQ(off.status, 0) << off.errors;
  EXPECT_EQ(json::parse(off.output), json({{"queue", kQueue}, {"remember", false}}));
  EXPECT_EQ(stored(), json({{"Remember", "Off"}}));
  const Outcome bare = print({"--dry-run", "--json"});
  EXPECT_EQ(json::parse(bare.output)["options"]["VtCoverModeState"], "Off");
  EXPECT_EQ(json::parse(bare.output)["options"].count("Remember"), 0U);
  // Asked for, it is on again.
  ASSERT_EQ(print({"--cover", "front", "--remember"}).status, 0);
  EXPECT_EQ(stored()["VtCoverModeState"], "On");
  EXPECT_EQ(stored().count("Remember"), 0U);
  ASSERT_EQ(run({"settings", "remember", "-d", kQueue, "on"}).status, 0);
  EXPECT_EQ(stored()["VtCoverModeState"], "On");
  ASSERT_EQ(run({"settings", "remember", "-d", kQueue, "off"}).status, 0);
  ASSERT_EQ(run({"settings", "remember", "-d", kQueue, "on"}).status, 0);
  EXPECT_THAT(stored(), IsEmpty());
  EXPECT_EQ(run({"settings", "remember", "-d", kQueue}).status, 2);
  EXPECT_EQ(run({"settings", "remember", "-d", kQueue, "perhaps"}).status, 2);
}

TEST_F(PublishingOnServer, RemembersNothingWhereARuleForbidsIt) {
  ASSERT_EQ(print({"--cover", "front", "--remember"}).status, 0);
  const json before = stored();
  const std::string rules = config_.path() + "/publishing/dialog";
  std::filesystem::create_directories(rules);
  std::ofstream(rules + "/rules.ini") << "[Dialog]\nRemember=false\n";
  const Outcome bare = print({"--dry-run", "--json"});
  EXPECT_EQ(json::parse(bare.output)["options"]["VtCoverModeState"], "Off");
  const std::ptrdiff_t jobsBefore = jobs();
  const Outcome refused = print({"--insert", "4", "--remember"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr(rules + "/rules.ini has Remember=false"));
  EXPECT_EQ(jobs(), jobsBefore);
  EXPECT_EQ(stored(), before);
  EXPECT_THAT(run({"settings", "show", "-d", kQueue}).errors, HasSubstr("Remember=false"));
  std::filesystem::remove_all(rules);
}

TEST_F(PublishingOnServer, SendsAndStoresNothingForARefusedPageList) {
  ASSERT_EQ(print({"--insert", "4,7", "--remember"}).status, 0);
  const json before = stored();
  const std::ptrdiff_t jobsBefore = jobs();
  for (const char* list : {"", "5-5", "1", "2-12", "x"}) {
    const Outcome outcome = print({"--insert", list, "--remember"});
    EXPECT_EQ(outcome.status, 1) << list;
    EXPECT_THAT(outcome.errors, HasSubstr("Page Number Error"));
  }
  EXPECT_EQ(jobs(), jobsBefore);
  EXPECT_EQ(stored(), before);
}

TEST_F(PublishingOnServer, StopsAtConflictsUnlessTheUserInsists) {
  const Words conflicting = {"--option", "MediaType=Thick"};
  const std::ptrdiff_t jobsBefore = jobs();
  const Outcome refused = print(conflicting);
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors,
              AllOf(HasSubstr("Media Type: Thick Paper (épais)"), HasSubstr("Paper Source: Tray 1"),
                    HasSubstr("--ignore-conflicts")));
  EXPECT_EQ(jobs(), jobsBefore);
  EXPECT_EQ(print({"--option", "MediaType=Thick", "--ignore-conflicts"}).status, 0);
  EXPECT_EQ(jobs(), jobsBefore + 1);
}

TEST_F(PublishingOnServer, TellsWhatBecameOfAFailedJob) {
  std::ofstream(cups_.out() + "/fail") << "1\nThe tray is empty\n";
  const Outcome outcome = print({"--wait", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(json::parse(outcome.output)["state"], "failed");
  EXPECT_THAT(outcome.errors, Not(IsEmpty()));
}

TEST_F(PublishingOnServer, NamesTheQueuesWhenOneIsUnknown) {
  const Outcome outcome = run({"print", "-d", "Nowhere", kReport});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("Nowhere"), HasSubstr(kQueue), HasSubstr("Second")));
}

TEST_F(PublishingOnServer, UsesTheDefaultQueue) {
  const Outcome outcome = run({"media", "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(json::parse(outcome.output)["printer"], kQueue);
}

// A folder cannot be made where a file stands, whoever the user is.
TEST_F(PublishingOnServer, PrintsNothingWhenTheSettingsCannotBeStored) {
  const std::ptrdiff_t jobsBefore = jobs();
  std::ofstream(config_ / "publishing") << "in the way";
  const Outcome outcome = print({"--cover", "front", "--remember"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, HasSubstr(config_ / "publishing"));
  EXPECT_EQ(jobs(), jobsBefore);
}

}  // namespace
}  // namespace publishing
