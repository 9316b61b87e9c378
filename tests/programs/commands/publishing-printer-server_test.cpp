// SPDX-License-Identifier: Apache-2.0
// "publishing printer" on the queues of a real print server that has the filter for covers.
#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/cups/PrivateCups.h"
#include "tests/printing/covers/SampleDrivers.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const auto* const environment =
    ::testing::AddGlobalTestEnvironment(new PrivateCups(PUBLISHING_BUILD));

constexpr const char* kSample = TEST_DATA "/zephrel-ps-9000.ppd";

const std::string kOther = test::ppdText(
    "*NickName: \"Other\"\n*ModelName: \"Other\"\n*Manufacturer: \"Other\"\n*Product: \"(Other)\"\n"
    "*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n" +
    test::optionLines("PageSize", {"A4", "A5"}, "A4") +
    "*DefaultImageableArea: A4\n*ImageableArea A4: \"0 0 595 842\"\n*ImageableArea A5: \"0 0 420 "
    "595\"\n"
    "*DefaultPaperDimension: A4\n*PaperDimension A4: \"595 842\"\n*PaperDimension A5: \"420 "
    "595\"\n" +
    kPostScriptMedia);

class PublishingPrinterOnServer : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    const TemporaryFolder folder;
    PrivateCups& cups = PrivateCups::instance();
    cups.addQueue("Zephrel", kSample);
    cups.addQueue("Other", folder.file("other.ppd", kOther));
    ASSERT_EQ(std::system("/usr/sbin/lpadmin -p Raw -E -v file:/dev/null 2>/dev/null"), 0);
  }

  void SetUp() override { (void)printer({"disable", "--all"}); }

  [[nodiscard]] Outcome printer(std::vector<std::string> words) const {
    words.insert(words.begin(), {PUBLISHING_PROGRAM, "printer"});
    return runProgram(words, {{"CUPS_SERVER", cups_.server()}});
  }

  [[nodiscard]] static std::string ppdOf(const std::string& queue) {
    return contentsOfFile(PrivateCups::instance().out() + "/../etc/ppd/" + queue + ".ppd");
  }

  [[nodiscard]] static json entryOf(const Outcome& outcome, const std::string& queue) {
    const json report = json::parse(outcome.output);
    for (const json& entry : report["printers"]) {
      if (entry["printer"] == queue) return entry;
    }
    return {};
  }

  PrivateCups& cups_ = PrivateCups::instance();
};

TEST_F(PublishingPrinterOnServer, EnabledQueuesHaveTheOptionsOfThePanel) {
  const Outcome outcome = printer({"enable", "-d", "Zephrel", "-d", "Other"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.output, AllOf(HasSubstr("Zephrel"), HasSubstr("Other")));
  const Outcome options =
      runProgram({"/usr/bin/lpoptions", "-p", "Other", "-l"}, {{"CUPS_SERVER", cups_.server()}});
  EXPECT_THAT(options.output,
              AllOf(HasSubstr("CoverMediaType/Cover Paper: *PrnDef Plain Coated Type.Auto "
                              "Slot.Auto Tray1 Tray2"),
                    HasSubstr("PageMediaType/Inserted Page Paper: *PrnDef Plain")));
}

TEST_F(PublishingPrinterOnServer, DisabledQueuesHaveTheirDriverBack) {
  const std::string before = ppdOf("Other");
  ASSERT_EQ(printer({"enable", "-d", "Zephrel", "-d", "Other"}).status, 0);
  EXPECT_NE(ppdOf("Zephrel"), contentsOfFile(kSample));
  ASSERT_EQ(printer({"disable", "-d", "Zephrel", "-d", "Other"}).status, 0);
  EXPECT_EQ(ppdOf("Zephrel"), contentsOfFile(kSample));
  EXPECT_EQ(ppdOf("Other"), before);
  EXPECT_THAT(before, HasSubstr("\n*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"));
}

TEST_F(PublishingPrinterOnServer, DefaultsThatWereChangedMeanwhileStay) {
  ASSERT_EQ(printer({"enable", "-d", "Other"}).status, 0);
  ASSERT_EQ(std::system("/usr/sbin/lpadmin -p Other -o InputSlot=Tray2 -o CoverMediaType=Tray1 "
                        "2>/dev/null"),
            0);
  EXPECT_THAT(ppdOf("Other"), HasSubstr("*DefaultCoverMediaType: Tray1"));
  EXPECT_THAT(printer({"enable", "-d", "Other"}).output, HasSubstr("Nothing to do"));
  ASSERT_EQ(printer({"disable", "-d", "Other"}).status, 0);
  EXPECT_THAT(ppdOf("Other"),
              AllOf(HasSubstr("*DefaultInputSlot: Tray2\n"), Not(HasSubstr("CoverMediaType"))));
}

TEST_F(PublishingPrinterOnServer, AllQueuesAreEnabledThatCanBe) {
  const Outcome outcome = printer({"enable", "--all", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(entryOf(outcome, "Zephrel")["changed"], true);
  EXPECT_EQ(entryOf(outcome, "Other")["enabled"], true);
  EXPECT_EQ(entryOf(outcome, "Raw")["error"]["kind"], "refused");
  const Outcome again = printer({"enable", "--all", "--json"});
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(entryOf(again, "Zephrel")["changed"], false);
  EXPECT_EQ(entryOf(printer({"status", "--all", "--json"}), "Other")["enabled"], true);
}

TEST_F(PublishingPrinterOnServer, OneBadQueueDoesNotStopTheOthers) {
  const Outcome unknown = printer({"enable", "-d", "Nowhere", "-d", "Raw", "-d", "Other"});
  EXPECT_EQ(unknown.status, 3);
  EXPECT_THAT(unknown.errors, AllOf(HasSubstr("Nowhere: "), HasSubstr("Raw: It has no driver")));
  EXPECT_THAT(unknown.output, HasSubstr("Other"));
  EXPECT_EQ(printer({"enable", "-d", "Raw", "-d", "Other"}).status, 1);
}

// cups-browsed makes such queues for those of other servers, with a backend of this name.
TEST_F(PublishingPrinterOnServer, QueuesOfAnotherServerAreRefused) {
  const std::string backends = cups_.out() + "/../lib/backend/";
  std::filesystem::copy_file(backends + "tofile", backends + "implicitclass");
  ASSERT_EQ(std::system("/usr/sbin/lpadmin -p Far -E -v implicitclass://Far/ -P " TEST_DATA
                        "/zephrel-ps-9000.ppd 2>/dev/null"),
            0);
  const Outcome outcome = printer({"enable", "-d", "Far"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("another print server"));
  EXPECT_THAT(ppdOf("Far"), Not(HasSubstr("publishing-postscript")));
  ASSERT_EQ(std::system("/usr/sbin/lpadmin -x Far"), 0);
}

TEST_F(PublishingPrinterOnServer, ClassesOfPrintersAreRefused) {
  ASSERT_EQ(std::system("/usr/sbin/lpadmin -p Other -c Office"), 0);
  const Outcome outcome = printer({"enable", "-d", "Office"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("class of printers"));
  ASSERT_EQ(std::system("/usr/sbin/lpadmin -x Office"), 0);
}

TEST_F(PublishingPrinterOnServer, WithoutAQueueTheDefaultOneIsMeant) {
  ASSERT_EQ(printer({"enable"}).status, 0);
  EXPECT_EQ(entryOf(printer({"status", "--json"}), "Zephrel")["enabled"], true);
}

TEST_F(PublishingPrinterOnServer, OthersThanAdministratorsAreToldWhoMay) {
  // In a session of its own there is no terminal to ask for a password on.
  const Outcome outcome = runProgram(
      {"/usr/bin/setsid", "--wait", PUBLISHING_PROGRAM, "printer", "enable", "-d", "Other"},
      {{"CUPS_SERVER", cups_.server()}, {"CUPS_USER", "mallory"}});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("lpadmin"), HasSubstr("sudo")));
  EXPECT_THAT(ppdOf("Other"), Not(HasSubstr("CoverMediaType")));
}

TEST_F(PublishingPrinterOnServer, JobsGoThroughTheFilterWhileItIsEnabled) {
  ASSERT_EQ(printer({"enable", "-d", "Other"}).status, 0);
  const Outcome outcome = runProgram(
      {PUBLISHING_PROGRAM, "print", "-d", "Other", "--cover=front", "--cover-media=Tray2",
       "--cover-sides=none", "--wait", "--json", TEST_DATA "/report.pdf"},
      {{"CUPS_SERVER", cups_.server()}});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const int job = json::parse(outcome.output)["job"];
  const std::string data = cups_.received(job, "data");
  // The blank cover is a page of its own before the document's 24, from the second tray.
  EXPECT_THAT(data, HasSubstr("%%Pages: 25"));
  EXPECT_THAT(data, HasSubstr("*InputSlot Tray2"));
}

}  // namespace
}  // namespace publishing
