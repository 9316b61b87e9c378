// SPDX-License-Identifier: Apache-2.0
// "publishing printer" on PPD files, as an administrator calls it.
#include <filesystem>

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

namespace fs = std::filesystem;

constexpr const char* kSample = TEST_DATA "/zephrel-ps-9000.ppd";

class PublishingPrinter : public ::testing::Test {
 protected:
  static Outcome run(std::vector<std::string> words) {
    words.insert(words.begin(), {PUBLISHING_PROGRAM, "printer"});
    return runProgram(words);
  }

  const TemporaryFolder folder_;
  const std::string output_ = folder_ / "output.ppd";
};

TEST_F(PublishingPrinter, EnablesAndDisablesAPPDFile) {
  const Outcome enabled = run({"enable", "--ppd", kSample, "--output", output_});
  ASSERT_EQ(enabled.status, 0) << enabled.errors;
  EXPECT_THAT(enabled.output, HasSubstr(kSample));
  EXPECT_THAT(contentsOfFile(output_), HasSubstr("application/vnd.publishing-postscript"));
  EXPECT_EQ(fs::status(output_).permissions() & fs::perms::group_write, fs::perms::none);

  ASSERT_EQ(run({"disable", "--ppd", output_, "--output", output_}).status, 0);
  EXPECT_EQ(contentsOfFile(output_), contentsOfFile(kSample));
}

TEST_F(PublishingPrinter, DoesNothingTwice) {
  const std::string again = folder_ / "again.ppd";
  ASSERT_EQ(run({"enable", "--ppd", kSample, "--output", output_}).status, 0);
  const Outcome second = run({"enable", "--ppd", output_, "--output", again});
  EXPECT_EQ(second.status, 0);
  EXPECT_THAT(second.output, HasSubstr("Nothing to do"));
  EXPECT_EQ(contentsOfFile(again), contentsOfFile(output_));
  EXPECT_THAT(run({"disable", "--ppd", kSample, "--output", again}).output,
              HasSubstr("Nothing to do"));
}

TEST_F(PublishingPrinter, WritesJSON) {
  const auto only = [](const Outcome& outcome) {
    EXPECT_THAT(outcome.errors, IsEmpty());
    const json printers = json::parse(outcome.output)["printers"];
    EXPECT_EQ(printers.size(), 1U);
    return printers[0];
  };
  EXPECT_EQ(only(run({"enable", "--ppd", kSample, "--output", output_, "--json"})),
            json({{"printer", kSample},
                  {"changed", true},
                  {"enabled", true},
                  {"possible", true},
                  {"kind", "postscript"},
                  {"reason", nullptr},
                  {"bypass", nullptr}}));
  EXPECT_EQ(only(run({"status", "--ppd", kSample, "--json"}))["enabled"], false);
  EXPECT_EQ(only(run({"status", "--ppd", output_, "--json"}))["enabled"], true);
}

TEST_F(PublishingPrinter, RefusesWithTheReasonAndWritesNothing) {
  const std::string raster =
      folder_.file("raster.ppd",
                   "*PPD-Adobe: \"4.3\"\n*cupsFilter: \"application/vnd.cups-raster 0 hpcups\"\n"
                   "*OpenUI *InputSlot: PickOne\n*InputSlot A: \"\"\n*InputSlot B: \"\"\n*CloseUI: "
                   "*InputSlot\n");
  const Outcome outcome = run({"enable", "--ppd", raster, "--output", output_});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr(raster), HasSubstr("hpcups")));
  EXPECT_FALSE(fs::exists(output_));

  const Outcome inJSON = run({"enable", "--ppd", raster, "--output", output_, "--json"});
  EXPECT_EQ(inJSON.status, 1);
  const json entry = json::parse(inJSON.output)["printers"][0];
  EXPECT_EQ(entry["error"]["kind"], "refused");
  EXPECT_EQ(entry["error"]["message"], entry["reason"]);
  EXPECT_EQ(entry["kind"], "one-medium");

  const Outcome status = run({"status", "--ppd", raster});
  EXPECT_EQ(status.status, 0);
  EXPECT_THAT(status.output, AllOf(HasSubstr("cannot"), HasSubstr("hpcups")));
}

TEST_F(PublishingPrinter, NamesFilesThatCannotBeUsed) {
  const std::string missing = folder_ / "missing.ppd";
  const std::string junk = folder_.file("junk.ppd", "junk\n");
  const std::string nowhere = folder_ / "no-folder/output.ppd";
  const struct {
    std::string ppd;
    std::string output;
    std::string named;
    int status;
  } table[] = {{missing, output_, missing, 3},
               {folder_.path(), output_, folder_.path(), 3},
               {junk, output_, "The PPD of " + junk + " cannot be used: line 1", 3},
               {kSample, nowhere, nowhere, 3},
               {kSample, folder_.path(), folder_.path(), 3}};
  for (const auto& row : table) {
    const Outcome outcome = run({"enable", "--ppd", row.ppd, "--output", row.output});
    EXPECT_EQ(outcome.status, row.status) << row.named;
    EXPECT_THAT(outcome.errors, HasSubstr(row.named));
    EXPECT_FALSE(fs::exists(output_));
  }
}

TEST_F(PublishingPrinter, ReplacesWhatALinkPointsTo) {
  const std::string target = folder_.file("target.ppd", "old");
  fs::create_symlink(target, output_);
  ASSERT_EQ(run({"enable", "--ppd", kSample, "--output", output_}).status, 0);
  EXPECT_TRUE(fs::is_symlink(output_));
  EXPECT_THAT(contentsOfFile(target), HasSubstr("publishing-postscript"));
}

TEST_F(PublishingPrinter, WritesToAPipeToo) {
  const Outcome outcome = run({"enable", "--ppd", kSample, "--output", "/dev/stderr"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("publishing-postscript"));
}

TEST_F(PublishingPrinter, WrongUsageIsToldApart) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                {"enable", "--ppd", kSample},
                                                {"enable", "--output", output_},
                                                {"enable", "-d", "A", "--all"},
                                                {"status", "--ppd", kSample, "--all"},
                                                {"status", "--ppd", kSample, "--output", output_}})
    EXPECT_EQ(run(words).status, 2);
}

}  // namespace
}  // namespace publishing
