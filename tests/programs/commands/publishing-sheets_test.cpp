// SPDX-License-Identifier: Apache-2.0
// The sheets of a job as the command line shows them, without a print server.
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/printing/Samples.h"
#include "tests/support/Program.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using Words = std::vector<std::string>;

const Words kReport = {"--sides",        "two-sided-long-edge",
                       "--cover",        "front-back",
                       "--cover-media",  "Coated",
                       "--insert",       "5,8",
                       "--cover-sides",  "front-outside",
                       "--insert-media", "Thick"};

constexpr const char* kReportTable =
    "Sheet  Paper                 Front   Back\n"
    "1      Coated Paper          1       blank\n"
    "2      Plain Paper (Tray 1)  2       3\n"
    "3      Plain Paper (Tray 1)  4       blank\n"
    "4      Thick Paper (épais)   blank   blank\n"
    "5      Plain Paper (Tray 1)  5       6\n"
    "6      Plain Paper (Tray 1)  7       blank\n"
    "7      Thick Paper (épais)   blank   blank\n"
    "8–15   Plain Paper (Tray 1)  8 … 22  9 … 23\n"
    "16     Plain Paper (Tray 1)  24      blank\n"
    "17     Coated Paper          blank   blank\n"
    "\n"
    "Sheets  Paper\n"
    "2       Coated Paper\n"
    "13      Plain Paper (Tray 1)\n"
    "2       Thick Paper (épais)\n";

class PublishingSheets : public ::testing::Test {
 protected:
  [[nodiscard]] Outcome run(Words words, const Words& more) const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    words.insert(words.end(), {"--ppd", kSamplePPD});
    words.insert(words.end(), more.begin(), more.end());
    return runProgram(words, {{"CUPS_SERVER", "127.0.0.1:1"}, {"XDG_CONFIG_HOME", folder_.path()}});
  }
  [[nodiscard]] Outcome sheets(const Words& words) const { return run({"sheets"}, words); }

  [[nodiscard]] json asJson(Words words) const {
    words.emplace_back("--json");
    return json::parse(sheets(words).output);
  }

  // "1|0 2|3": the pages on front and back, 0 on a blank side.
  [[nodiscard]] static std::string sidesIn(const json& report) {
    std::string text;
    for (const json& sheet : report["sheets"])
      text += (text.empty() ? "" : " ") + sheet["front"].dump() + "|" + sheet["back"].dump();
    return text;
  }

  TemporaryFolder folder_;
};

Words operator+(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

TEST_F(PublishingSheets, AreATableWithTotals) {
  const Outcome shown = sheets(kReport + Words{TEST_DATA "/report.pdf"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.output,
            std::string("Front and back cover on Coated Paper, page 1 outside; sheets of Thick "
                        "Paper (épais) before pages 5 and 8. 17 sheets in all.\n\n") +
                kReportTable);
  EXPECT_THAT(shown.errors, IsEmpty());
}

TEST_F(PublishingSheets, OfAOneSidedJobHaveNoBack) {
  EXPECT_THAT(sheets({"--pages", "2"}).output, HasSubstr("Sheet  Paper                 Front\n"
                                                         "1–2    Plain Paper (Tray 1)  1 … 2\n"));
}

TEST_F(PublishingSheets, AreJson) {
  const Outcome shown = sheets(kReport + Words{"--json", "--pages", "5", "-n", "2"});
  EXPECT_EQ(shown.output,
            R"({"sheets":[{"sheet":1,"role":"front-cover","medium":"Coated","front":1,"back":0},)"
            R"({"sheet":2,"role":"body","medium":"Tray1/Plain","front":2,"back":3},)"
            R"({"sheet":3,"role":"body","medium":"Tray1/Plain","front":4,"back":0},)"
            R"({"sheet":4,"role":"insert","medium":"Thick","front":0,"back":0},)"
            R"({"sheet":5,"role":"body","medium":"Tray1/Plain","front":5,"back":0},)"
            R"({"sheet":6,"role":"back-cover","medium":"Coated","front":0,"back":0}],"copies":2,)"
            R"("totals":[{"medium":"Coated","sheets":4},{"medium":"Tray1/Plain","sheets":6},)"
            R"({"medium":"Thick","sheets":2}],)"
            R"("warnings":["No insert for page 8: the last page comes before it."]})"
            "\n");
}

TEST_F(PublishingSheets, FollowTheJobsOptions) {
  const Words twoSided = {"--pages", "7", "--sides", "two-sided-long-edge"};
  EXPECT_EQ(sidesIn(asJson(twoSided)), "1|2 3|4 5|6 7|0");
  EXPECT_EQ(sidesIn(asJson(twoSided + Words{"-P", "2-4"})), "1|2 3|0");
  EXPECT_EQ(sidesIn(asJson(twoSided + Words{"--number-up", "4"})), "1|2");
  EXPECT_EQ(sidesIn(asJson({"--pages", "3", "-o", "Duplex=DuplexTumble"})), "1|2 3|0");
  EXPECT_EQ(sidesIn(asJson({"--pages", "3"})), "1|null 2|null 3|null");
  const json onTray = asJson({"--pages", "1", "-o", "InputSlot=Tray3", "-o", "MediaType=Coated"});
  EXPECT_EQ(onTray["sheets"][0]["medium"], "Tray3/Coated");
}

TEST_F(PublishingSheets, AreDrawn) {
  const std::string file = folder_ / "sheets.svg";
  const Outcome drawn = sheets(kReport + Words{"--picture", file, TEST_DATA "/report.pdf"});
  EXPECT_EQ(drawn.status, 0);
  const std::string picture = contentsOfFile(file);
  EXPECT_THAT(picture, HasSubstr("<title>Front and back cover on Coated Paper, page 1 outside; "));
  EXPECT_THAT(picture, HasSubstr(">report.pdf</text>"));
  EXPECT_THAT(picture, HasSubstr(">2 × Coated Paper</text>"));
}

TEST_F(PublishingSheets, OfAnUnknownNumberOfPagesAreAskedFor) {
  const Outcome nothing = sheets({});
  EXPECT_EQ(nothing.status, 2);
  EXPECT_THAT(nothing.errors, HasSubstr("give the number of its pages with --pages"));
  const std::string plain = folder_.file("plain.ps", "%!PS\nshowpage\n");
  const Outcome unknown = sheets({plain});
  EXPECT_EQ(unknown.status, 3);
  EXPECT_THAT(unknown.errors, HasSubstr("plain.ps does not tell how many pages it has."));
  EXPECT_EQ(sheets({"--pages", "3", plain}).status, 0);
}

TEST_F(PublishingSheets, NumbersOfPagesThatMakeNoSenseAreWrongUsage) {
  for (const char* pages : {"0", "-1", "100001", "99999999999", "three", ""}) {
    const Outcome refused = sheets({"--pages", pages});
    EXPECT_EQ(refused.status, 2) << pages;
    EXPECT_THAT(refused.errors, HasSubstr("--pages")) << pages;
  }
  EXPECT_EQ(sheets({"--pages", "100000"}).status, 0);
}

TEST_F(PublishingSheets, WhatThePanelRefusesIsNotDrawn) {
  const std::string file = folder_ / "sheets.svg";
  const Outcome refused = sheets({"--pages", "5", "--insert", "1", "--picture", file});
  EXPECT_EQ(refused.status, 1);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(PublishingSheets, PictureThatCannotBeWrittenIsTrouble) {
  const Outcome failed = sheets({"--pages", "5", "--picture", folder_ / "missing/sheets.svg"});
  EXPECT_EQ(failed.status, 3);
  EXPECT_THAT(failed.errors, HasSubstr("missing/sheets.svg cannot be written: "));
  EXPECT_THAT(failed.output, IsEmpty());
}

TEST_F(PublishingSheets, OfADryRunAreTheSame) {
  const Outcome shown = run({"print", "--dry-run"}, kReport + Words{TEST_DATA "/report.pdf"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_THAT(shown.output, HasSubstr(kReportTable));
  EXPECT_THAT(shown.output, HasSubstr("Nothing was printed"));
}

TEST_F(PublishingSheets, BeyondTheDocumentAreToldBeforePrinting) {
  const Words words = {"--insert", "5,400", TEST_DATA "/report.pdf"};
  EXPECT_THAT(run({"print", "--dry-run"}, words).errors,
              HasSubstr("No insert for page 400: the last page comes before it."));
}

TEST_F(PublishingSheets, OfSeveralDocumentsAreNamed) {
  const std::string other = folder_.file("other.pdf", samplePDF(2));
  const Outcome shown = run({"print", "--dry-run"}, {TEST_DATA "/report.pdf", other});
  EXPECT_THAT(shown.output, HasSubstr("report.pdf: No covers and no inserts. 24 sheets in all.\n"));
  EXPECT_THAT(shown.output, HasSubstr("other.pdf: No covers and no inserts. 2 sheets in all.\n"));
}

TEST_F(PublishingSheets, OfADocumentThatDoesNotTellItsPagesAreSaidWithoutATotal) {
  const std::string plain = folder_.file("plain.ps", "%!PS\nshowpage\n");
  const Outcome shown = run({"print", "--dry-run"}, {"--cover", "front", plain});
  EXPECT_THAT(shown.output, HasSubstr("ront cover on Printer Default"));
  EXPECT_THAT(shown.output, Not(HasSubstr("in all")));
}

}  // namespace
}  // namespace publishing
