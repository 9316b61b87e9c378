// SPDX-License-Identifier: Apache-2.0
// "publishing preset" and "print --preset" as a user calls them, without a print server.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/printing/Samples.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using Words = std::vector<std::string>;

constexpr const char* kTwoSided = "--sides=two-sided-long-edge";

class PublishingPreset : public ::testing::Test {
 protected:
  PublishingPreset() {
    for (const char* name : {"etc", "etc/publishing", "etc/publishing/presets"})
      std::filesystem::create_directory(folder_ / name);
  }

  // No server is reached: nothing listens at this address.
  [[nodiscard]] std::map<std::string, std::string> environment() const {
    return {{"CUPS_SERVER", "127.0.0.1:1"},
            {"XDG_CONFIG_HOME", folder_ / "config"},
            {"XDG_CONFIG_DIRS", folder_ / "etc"}};
  }
  [[nodiscard]] Outcome run(Words words) const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    return runProgram(words, environment());
  }
  [[nodiscard]] Outcome preset(Words words) const {
    words.insert(words.begin(), "preset");
    return run(words);
  }

  // Front and back covers on leather, sheets of recycled paper.
  void saveReport() const {
    const Outcome outcome =
        preset({"save", "Annual report", "--ppd", kSamplePPD, kTwoSided, "--cover", "front-back",
                "--cover-media", "Leather", "--cover-sides", "front-outside,front-inside",
                "--insert", "5,8,12-14", "--insert-media", "Recycled"});
    ASSERT_EQ(outcome.status, 0) << outcome.errors;
  }

  // A dry run on the PPD.
  [[nodiscard]] Outcome print(const std::string& ppd, const Words& options) const {
    Words words = {"print", "--ppd", ppd, "--dry-run", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(document_);
    return run(words);
  }
  [[nodiscard]] json optionsOf(const Words& options) const {
    const Outcome outcome = print(kSamplePPD, options);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return json::parse(outcome.output)["options"];
  }

  // The sample printer with another paper in the leather's place.
  [[nodiscard]] std::string printerWithoutLeather() const {
    return folder_.file("other.ppd", changedPPD("CoverMediaType Leather/Leather Grain",
                                                "CoverMediaType Hide/Hide"));
  }

  TemporaryFolder folder_;
  std::string document_ = folder_.file("document.ps", "%!PS\nshowpage\n");
};

TEST_F(PublishingPreset, IsSavedShownAndPrintedWith) {
  EXPECT_THAT(preset({"list"}).errors, HasSubstr("no presets"));
  saveReport();
  EXPECT_EQ(preset({"list"}).output, "Annual report\n");
  EXPECT_THAT(preset({"show", "annual report"}).output,
              AllOf(HasSubstr("Cover=front-back\n"), HasSubstr("CoverMedia=Leather\n"),
                    HasSubstr("Insert=12-14,5,8\n"), Not(HasSubstr("Vt"))));
  const json options = optionsOf({kTwoSided, "--preset", "Annual report"});
  EXPECT_EQ(options["CoverMediaType"], "Leather");
  EXPECT_EQ(options["VtCoverModeValue"], "3");
  EXPECT_EQ(options["VtCovermodeRadioButtonState"], "2");
  EXPECT_EQ(options["PageMediaType"], "Recycled");
  EXPECT_EQ(options["VtPageinsertNums"], "5,8,12,13,14,");
}

TEST_F(PublishingPreset, IsOverruledByWhatIsSaidExplicitly) {
  saveReport();
  const json options = optionsOf({kTwoSided, "--preset", "Annual report", "--cover-media", "Tray2",
                                  "--insert", "6", "--insert-sides", "front"});
  EXPECT_EQ(options["CoverMediaType"], "Tray2");
  EXPECT_EQ(options["VtCoverModeValue"], "3");
  EXPECT_EQ(options["PageMediaType"], "Recycled");
  EXPECT_EQ(options["VtPageinsertNums"], "6,");
  EXPECT_EQ(options["VtPageinsertValue"], "1");
  const json bare = optionsOf({"--preset", "Annual report", "--cover", "none", "--insert", "none"});
  EXPECT_EQ(bare["VtCoverModeState"], "Off");
  EXPECT_EQ(bare["VtPageinsertState"], "Off");
}

TEST_F(PublishingPreset, CanSwitchEverythingOff) {
  ASSERT_EQ(preset({"save", "Plain", "--ppd", kSamplePPD, "--cover", "none"}).status, 0);
  const json options = optionsOf({"--preset", "Plain"});
  EXPECT_EQ(options["VtCoverModeState"], "Off");
  EXPECT_EQ(options["VtPageinsertState"], "Off");
}

// Never silently another medium.
TEST_F(PublishingPreset, OfAnotherPrinterSaysWhatIsMissing) {
  saveReport();
  const std::string other = printerWithoutLeather();
  const Outcome refused = print(other, {kTwoSided, "--preset", "Annual report"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors,
              AllOf(HasSubstr("Leather Grain"), HasSubstr("is not offered for covers"),
                    HasSubstr("--cover-media")));
  EXPECT_EQ(json::parse(refused.output)["error"]["kind"], "refused");
  EXPECT_EQ(print(other, {kTwoSided, "--preset", "Annual report", "--cover", "front"}).status, 1);

  const Outcome named =
      print(other, {kTwoSided, "--preset", "Annual report", "--cover-media", "Hide"});
  EXPECT_EQ(named.status, 0) << named.errors;
  EXPECT_EQ(json::parse(named.output)["options"]["CoverMediaType"], "Hide");
  EXPECT_EQ(json::parse(named.output)["options"]["VtCovermodeRadioButtonState"], "2");
  const Outcome without = print(other, {kTwoSided, "--preset", "Annual report", "--cover", "none"});
  EXPECT_EQ(without.status, 0) << without.errors;
  EXPECT_EQ(json::parse(without.output)["options"]["PageMediaType"], "Recycled");
}

TEST_F(PublishingPreset, SaysWhatTheJobLeavesOut) {
  saveReport();
  const Outcome oneSided = print(kSamplePPD, {"--preset", "Annual report"});
  EXPECT_EQ(oneSided.status, 0);
  EXPECT_THAT(oneSided.errors, AllOf(HasSubstr("two-sided"), HasSubstr("front-inside")));
  EXPECT_THAT(print(kSamplePPD, {kTwoSided, "--preset", "Annual report"}).errors, IsEmpty());
  EXPECT_THAT(
      print(kSamplePPD, {"--preset", "Annual report", "--cover-sides", "front-outside"}).errors,
      IsEmpty());
  const Outcome layout = print(kSamplePPD, {"--preset", "Annual report", "--number-up", "4"});
  EXPECT_EQ(layout.status, 0);
  EXPECT_THAT(layout.errors, AllOf(HasSubstr("preset \"Annual report\""), HasSubstr("left out")));
}

TEST_F(PublishingPreset, PagesThatThePanelRefusesAreSaidToBeItsOwn) {
  std::filesystem::create_directories(folder_ / "config/publishing/presets");
  (void)folder_.file("config/publishing/presets/x.preset",
                     "[Publishing Preset]\nVersion=1\nName=Bad\nInsert=9-5\nInsertMedia=Tray2\n");
  const Outcome outcome = print(kSamplePPD, {"--preset", "Bad"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("range"), HasSubstr("preset \"Bad\" (9-5)")));
}

TEST_F(PublishingPreset, IsReplacedOnDemandOnly) {
  saveReport();
  const Words again = {"save", "annual REPORT", "--ppd", kSamplePPD, "--cover", "none"};
  const Outcome refused = preset(again);
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, AllOf(HasSubstr("already"), HasSubstr("--force")));
  EXPECT_THAT(preset({"show", "Annual report"}).output, HasSubstr("Leather"));
  Words forced = again;
  forced.emplace_back("--force");
  EXPECT_EQ(preset(forced).status, 0);
  EXPECT_EQ(preset({"list"}).output, "annual REPORT\n");
}

TEST_F(PublishingPreset, StartsFromAnotherOne) {
  saveReport();
  const Outcome outcome = preset({"save", "Short", "--ppd", kSamplePPD, kTwoSided, "--preset",
                                  "Annual report", "--insert", "none", "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json saved = json::parse(outcome.output)["preset"];
  EXPECT_EQ(saved["cover"], "front-back");
  EXPECT_EQ(saved["insert"], "none");
}

TEST_F(PublishingPreset, TravelsAsAFile) {
  saveReport();
  const std::string file = folder_ / "report.preset";
  EXPECT_EQ(preset({"export", "Annual report", file}).status, 0);
  const Outcome kept = preset({"export", "Annual report", file});
  EXPECT_EQ(kept.status, 1);
  EXPECT_THAT(kept.errors, HasSubstr("--force"));
  EXPECT_EQ(preset({"export", "Annual report", file, "--force"}).status, 0);

  EXPECT_EQ(preset({"import", file}).status, 1);
  EXPECT_EQ(preset({"import", file, "--force"}).status, 0);
  EXPECT_EQ(preset({"import", file, "--name", "Mine"}).status, 0);
  EXPECT_EQ(preset({"list"}).output, "Annual report\nMine\n");
  EXPECT_EQ(preset({"delete", "mine"}).status, 0);
  EXPECT_EQ(preset({"list"}).output, "Annual report\n");
  const Outcome damaged = preset({"import", folder_.file("bad.preset", "x\n"), "--json"});
  EXPECT_EQ(damaged.status, 3);
  EXPECT_EQ(json::parse(damaged.output)["error"]["kind"], "trouble");
  EXPECT_EQ(preset({"import", folder_ / "missing"}).status, 3);
}

TEST_F(PublishingPreset, OfTheAdministratorIsThereForAll) {
  const std::string file =
      folder_.file("etc/publishing/presets/house.preset",
                   "[Publishing Preset]\nVersion=1\nName=House\nCover=front\nCoverMedia=Leather\n"
                   "CoverSides=front-outside\n");
  EXPECT_EQ(optionsOf({"--preset", "house"})["CoverMediaType"], "Leather");
  const json listed = json::parse(preset({"list", "--json"}).output)["presets"][0];
  EXPECT_EQ(listed["origin"], "administrator");
  EXPECT_EQ(listed["file"], file);
  const Outcome refused = preset({"delete", "House"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr("administrator"));
  EXPECT_EQ(preset({"save", "house", "--ppd", kSamplePPD, "--cover", "none"}).status, 0);
  EXPECT_EQ(optionsOf({"--preset", "house"})["VtCoverModeState"], "Off");
  EXPECT_THAT(preset({"delete", "House"}).output, HasSubstr(file));
}

TEST_F(PublishingPreset, FailuresHaveTheirStatus) {
  saveReport();
  const struct {
    Words words;
    int status;
    const char* message;
  } cases[] = {
      {{"show", "nothing"}, 1, "The presets are:\n  Annual report"},
      {{"delete", "nothing"}, 1, "no preset named"},
      {{"export", "nothing", "file"}, 1, "no preset named"},
      {{"save", "", "--cover", "none"}, 2, "needs a name"},
      {{"save", "a\nb", "--cover", "none"}, 2, "cannot be shown"},
      {{"save", std::string(101, 'x'), "--cover", "none"}, 2, "longer than 100"},
      {{"save", "x", "--ppd", kSamplePPD}, 2, "--cover"},
      {{"save", "x", "--ppd", kSamplePPD, "--cover", "front", "--cover-media", "Gold"}, 1, "Gold"},
      {{"save", "x", "--ppd", kSamplePPD, "--insert", "1"}, 1, "between 2 and 511"},
      {{"save", "x", "--ppd", kSamplePPD, "--cover", "front", "--cover-sides", "front-inside"},
       1,
       "two-sided"},
      {{"save"}, 2, "NAME is missing"},
      {{"export", "x"}, 2, "FILE is missing"},
      {{"import", folder_ / "report.preset", "--name", ""}, 3, "no such file"},
      {{"save", "x", "--cover", "none", "--ppd", folder_ / "no.ppd"}, 3, "no.ppd"},
  };
  for (const auto& [words, status, message] : cases) {
    const Outcome outcome = preset(words);
    EXPECT_EQ(outcome.status, status) << words.front() << ": " << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(message));
  }
  EXPECT_EQ(preset({"list"}).output, "Annual report\n");
  EXPECT_EQ(print(kSamplePPD, {"--preset", "nothing"}).status, 1);
  EXPECT_EQ(print(kSamplePPD, {"--preset", ""}).status, 2);
}

TEST_F(PublishingPreset, SavedByManyAtOnceIsOneOfThem) {
  std::vector<std::unique_ptr<RunningProgram>> programs;
  for (const char* medium : {"Leather", "Tray2", "Plain", "Tray3"}) {
    programs.push_back(std::make_unique<RunningProgram>(
        Words{PUBLISHING_PROGRAM, "preset", "save", "Report", "--ppd", kSamplePPD, "--cover",
              "front", "--cover-media", medium},
        environment()));
  }
  int saved = 0;
  for (const auto& program : programs) {
    const Outcome outcome = program->finish();
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << outcome.errors;
    saved += outcome.status == 0 ? 1 : 0;
  }
  EXPECT_EQ(saved, 1);
  EXPECT_EQ(preset({"list"}).output, "Report\n");
}

}  // namespace
}  // namespace publishing
