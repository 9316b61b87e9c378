// SPDX-License-Identifier: Apache-2.0
// The program publishing as a user calls it, without a print server.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/printing/Samples.h"
#include "tests/programs/commands/PublishingWithoutServer.h"

namespace publishing {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST_F(Publishing, SpeaksTheLanguageOfTheUser) {
  const auto complaint = [](const char* language) {
    return runProgram({PUBLISHING_PROGRAM, "pages", "5-5"},
                      {{"PUBLISHING_LOCALE_DIR", LOCALE_FOLDER}, {"LANGUAGE", language}})
        .errors;
  };
  EXPECT_EQ(
      complaint("de"),
      "publishing: Fehler in den Seitenzahlen: Die letzte Seitenzahl eines Bereichs muss größer "
      "sein als die erste.\n");
  EXPECT_EQ(complaint("zh_CN"), "publishing: 页码错误: 页面范围的结束页码必须大于起始页码。\n");
  EXPECT_EQ(
      complaint("C"),
      "publishing: Page Number Error: The ending page number of range should be bigger than the "
      "beginning page number.\n");
}

TEST_F(Publishing, SumsUpForProgramsInEnglish) {
  const Words words = {PUBLISHING_PROGRAM, "print",   "--json", "--ppd",  kPPD,
                       "--dry-run",        "--cover", "front",  document_};
  const Outcome german = runProgram(words, {{"PUBLISHING_LOCALE_DIR", LOCALE_FOLDER},
                                            {"XDG_CONFIG_HOME", folder_.path()},
                                            {"LANGUAGE", "de"}});
  EXPECT_EQ(json::parse(german.output)["summary"],
            json({{"Cover Mode", "On"}, {"Page Insert", "Off"}}));
}

TEST_F(Publishing, ChecksPageLists) {
  struct Case {
    Words words;
    int status;
    const char* report;
  };
  const Case cases[] = {
      {{"5,8,12-14"}, 0, R"({"result":0,"count":5,"pages":[5,8,12,13,14]})"},
      {{"2"}, 0, R"({"result":0,"count":1,"pages":[2]})"},
      {{"--cover-value", "3", "2"}, 1, R"({"result":-2,"count":0,"pages":[]})"},
      {{"--cover-value", "3", "2-4"}, 0, R"({"result":0,"count":3,"pages":[2,3,4]})"},
      {{"--two-sided", "--cover-value", "3", "2-4"}, 1, R"({"result":-2,"count":0,"pages":[]})"},
      {{"9,4,x"}, 1, R"({"result":-1,"count":2,"pages":[9,4]})"},
      {{"5-5"}, 1, R"({"result":-4,"count":0,"pages":[]})"},
      {{"2-12"}, 1, R"({"result":-3,"count":0,"pages":[]})"},
      {{"-5"}, 1, R"({"result":-2,"count":0,"pages":[]})"},
      {{","}, 1, R"({"result":0,"count":0,"pages":[]})"},
  };
  for (const Case& check : cases) {
    Words words = {"pages", "--json"};
    words.insert(words.end(), check.words.begin(), check.words.end());
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, check.status) << words.back();
    json report = json::parse(check.report);
    json told = json::parse(outcome.output);
    EXPECT_EQ(told["accepted"], check.status == 0) << words.back();
    EXPECT_EQ(told.contains("error"), check.status != 0) << words.back();
    told.erase("accepted");
    told.erase("error");
    EXPECT_EQ(told, report) << words.back();
  }
}

TEST_F(Publishing, TellsWhatIsWrongWithAPageList) {
  const Outcome outcome = run({"pages", "5-5"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "publishing: Page Number Error: The ending page number of range should be bigger than "
            "the beginning page number.\n");
}

TEST_F(Publishing, AcceptsMorePagesThanTheLimitFromRanges) {
  const Outcome outcome = run({"pages", "--json", "2-10,12-20"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(json::parse(outcome.output)["count"], 18);
}

TEST_F(Publishing, ListsMediaWithTheReasonAgainstTheUnavailable) {
  const Outcome outcome =
      run({"media", "--ppd", kPPD, "--mark", "MediaType=Transparency", "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json items = json::parse(outcome.output)["cover"]["items"];
  ASSERT_EQ(items.size(), 11U);
  EXPECT_EQ(items[7], json({{"choice", "Tray2"},
                            {"text", "Tray 2"},
                            {"allowed", false},
                            {"reason", "conflicts with Media Type: Transparency"}}));
  EXPECT_EQ(items[8], json({{"choice", "Tray3"}, {"text", "Tray 3"}, {"allowed", true}}));
}

// The sample printer's bypass tray takes no cover paper beside it, whichever that is.
TEST_F(Publishing, OffersTraysThatOnlyTheMediumOfAFeatureThatIsOffForbids) {
  const json media = json::parse(run({"media", "--ppd", kPPD, "--json"}).output);
  for (const char* feature : {"cover", "insert"}) {
    const json& bypass = media[feature]["items"].back();
    EXPECT_EQ(bypass, json({{"choice", "Bypass"}, {"text", "Bypass Tray"}, {"allowed", true}}));
  }
  const auto status = [this](Words options) {
    options.insert(options.begin(), {"print", "--ppd", kPPD, "--dry-run", "--insert", "2",
                                     "--insert-media", "Bypass"});
    options.push_back(document_);
    return run(options).status;
  };
  EXPECT_EQ(status({}), 0);
  EXPECT_EQ(status({"--cover", "front", "--cover-media", "Leather"}), 1);
}

TEST_F(Publishing, CoversWithoutSidesHaveTheFrontsOutside) {
  struct Case {
    Words words;
    const char* kind;
    const char* value;
  };
  const Case cases[] = {
      {{"--cover", "front"}, "1", "1"},
      {{"--cover", "front-back"}, "2", "1"},
      {{"--cover", "front", "--cover-media", "Leather"}, "1", "1"},
      {{"--cover", "front", "--cover-sides", "none"}, "1", "16"},
      {{"--cover", "front-back", "--cover-sides", "none"}, "2", "32"},
      {{"--cover", "front-back", "--cover-sides", "back-inside"}, "2", "8"},
  };
  for (const Case& check : cases) {
    Words words = check.words;
    words.push_back(document_);
    const Outcome outcome = dryRun(words);
    ASSERT_EQ(outcome.status, 0) << outcome.errors;
    const json options = json::parse(outcome.output)["options"];
    EXPECT_EQ(options["VtCovermodeRadioButtonState"], check.kind) << check.words.back();
    EXPECT_EQ(options["VtCoverModeValue"], check.value) << check.words.back();
  }
}

// What a preset says of the sides counts; another kind of cover begins with the front's outside.
TEST_F(Publishing, CoversOfAPresetKeepTheirSides) {
  const auto value = [this](const char* preset, Words words) -> std::string {
    words.insert(words.begin(), {"--preset", preset});
    words.push_back(document_);
    const Outcome outcome = dryRun(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return json::parse(outcome.output)["options"]["VtCoverModeValue"];
  };
  ASSERT_EQ(run({"preset", "save", "Back", "--ppd", kPPD, "--cover", "front-back", "--cover-sides",
                 "back-inside"})
                .status,
            0);
  ASSERT_EQ(
      run({"preset", "save", "Blank", "--ppd", kPPD, "--cover", "front", "--cover-sides", "none"})
          .status,
      0);
  EXPECT_EQ(value("Back", {"--cover", "front-back"}), "8");
  EXPECT_EQ(value("Back", {"--cover", "front"}), "1");
  EXPECT_EQ(value("Blank", {"--cover", "front"}), "16");
  EXPECT_EQ(value("Blank", {"--cover", "front-back"}), "32");
}

TEST_F(Publishing, DryRunReportsStateAndJob) {
  const Outcome outcome =
      dryRun({"--sides", "two-sided-long-edge", "--cover", "front-back", "--cover-media", "Coated",
              "--cover-sides", "front-outside,back-outside", "--insert", "7,3,7", "--insert-sides",
              "front,back"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json report = json::parse(outcome.output);
  EXPECT_EQ(report["summary"], json({{"Cover Mode", "On"}, {"Page Insert", "On"}}));
  EXPECT_EQ(report["job"], json());
  EXPECT_EQ(report["options"]["CoverMediaType"], "Coated");
  EXPECT_EQ(report["options"]["VtCoverModeValue"], "5");
  EXPECT_EQ(report["options"]["VtPageinsertNums"], "3,7,");
  EXPECT_EQ(report["options"]["VtPageinsertValue"], "3");
  EXPECT_EQ(report["options"]["sides"], "two-sided-long-edge");
}

TEST_F(Publishing, DumpsThePanelAsPanelScriptsDo) {
  const std::string script = write("script.txt", std::string("ppd ") + kPPD +
                                                     "\nduplex 2\nview\nrestore\nshow\n"
                                                     "click CmCheckBox\nradio 1\n"
                                                     "choose CmMediaType 7\nclick CmBackInside\n"
                                                     "click PiCheckBox\ntype 5,8\nsave\ndump\n");
  const Outcome scripted = runProgram({PANEL_SCRIPT, script});
  const json expected = json::parse(
      scripted.output.substr(scripted.output.rfind('\n', scripted.output.size() - 2) + 1));
  const Outcome outcome =
      dryRun({"--sides", "two-sided-long-edge", "--cover", "front-back", "--cover-media", "Tray2",
              "--cover-sides", "back-inside", "--insert", "5,8"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json report = json::parse(outcome.output);
  EXPECT_EQ(report["controls"], expected["controls"]);
  EXPECT_EQ(report["fields"], expected["fields"]);
  for (const auto& [key, value] : expected["settings"].items()) {
    EXPECT_EQ(report["settings"][key], value) << key;
  }
}

TEST_F(Publishing, RefusesWhatThePanelRefuses) {
  struct Case {
    Words options;
    int status;
    const char* message;
  };
  const Case cases[] = {
      {{"--insert", ""}, 1, "Page Number Error: Please type a page range."},
      {{"--insert", "-5"}, 1, "Please enter your specified pages."},
      {{"--insert", "5-5"}, 1, "should be bigger than the beginning page number."},
      {{"--insert", "512"}, 1, "You can only enter page numbers between 2 and 511."},
      {{"--insert", "2-12"}, 1, "You can only insert up to 10 pages."},
      {{"--insert", "5,x"}, 1, "\"5,x\" contains characters other than digits, \"-\" and \",\"."},
      {{"--insert", "5\n8"}, 1, "contains characters other"},
      {{"--insert", "5\xff"}, 1, "contains characters other"},
      {{"--cover", "front", "--cover-media", "Nope"}, 1, "has no medium \"Nope\""},
      {{"--option", "MediaType=Transparency", "--cover", "front", "--cover-media", "Tray2"},
       1,
       "Tray 2 is not available: conflicts with Media Type: Transparency."},
      {{"--cover", "front", "--cover-sides", "front-inside"}, 1, "needs two-sided printing"},
      {{"--cover", "front", "--cover-sides", "back-inside"}, 1, "needs a back cover"},
      {{"--cover", "front", "--reverse"}, 1, "Leave out --reverse and --number-up"},
      {{"--insert", "5", "--number-up", "2"}, 1, "Leave out --reverse and --number-up"},
      {{"--option", "MediaType=Thick"}, 1, "Media Type: Thick Paper (épais)"},
  };
  for (const Case& check : cases) {
    const Outcome outcome = dryRun(check.options);
    EXPECT_EQ(outcome.status, check.status) << check.message << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(check.message));
    EXPECT_EQ(json::parse(outcome.output)["error"]["kind"], "refused") << check.message;
  }
}

TEST_F(Publishing, AnswersWrongUsageWithStatus2) {
  const Words cases[] = {
      {},
      {"frobnicate"},
      {"print"},
      {"print", "--cover", "sideways", document_},
      {"print", "--sides", "three", document_},
      {"print", "--ppd", kPPD, document_},
      {"print", "--output", path("x.ps"), document_},
      {"print", "--ppd", kPPD, "-d", "q", "--dry-run", document_},
      {"print", "--ppd", kPPD, "--remember", "--output", path("x.ps"), document_},
      {"print", "--ppd", kPPD, "--dry-run", "--number-up", "3", document_},
      {"print", "--ppd", kPPD, "--dry-run", "--copies", "0", document_},
      {"print", "--ppd", kPPD, "--dry-run", "--cover-media", "Tray2", document_},
      {"print", "--ppd", kPPD, "--dry-run", "--insert-sides", "front", document_},
      {"print", "--ppd", kPPD, "--dry-run", "--cover", "front", "--cover-sides", "top", document_},
      {"print", "--ppd", kPPD, "--dry-run", "--option", "MediaType", document_},
      {"pages"},
      {"settings"},
  };
  for (const Words& words : cases) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(words) << outcome.errors;
    EXPECT_THAT(outcome.errors, Not(IsEmpty()));
  }
}

TEST_F(Publishing, RefusesOptionValuesThatCupsWouldChange) {
  for (const char* option : {"Note={a=b}", "Note=one\ntwo", "Note=\xff", "A B=c", "raw"}) {
    const Outcome outcome = dryRun({"--option", option});
    EXPECT_EQ(outcome.status, 1) << option;
    EXPECT_THAT(outcome.errors, Not(IsEmpty()));
  }
  EXPECT_EQ(dryRun({"--option", "Note=" + std::string(256, 'x')}).status, 1);
  EXPECT_EQ(dryRun({"--option", "Note='\"quoted\"'"}).status, 0);
}

TEST_F(Publishing, NamesTheFileThatIsTrouble) {
  struct Case {
    Words words;
    std::string named;
  };
  const std::string empty = write("empty.pdf", "");
  const std::string text = write("notes.txt", "no document\n");
  const std::string broken = write("broken.ppd", "This is no PPD.\n");
  const Case cases[] = {
      {{"print", "--ppd", kPPD, "--dry-run", path("absent.pdf")}, "absent.pdf"},
      {{"print", "--ppd", kPPD, "--dry-run", empty}, "empty.pdf"},
      {{"print", "--ppd", kPPD, "--dry-run", text}, "notes.txt"},
      {{"print", "--ppd", kPPD, "--dry-run", folder_.path()}, folder_.path()},
      {{"print", "--ppd", broken, "--dry-run", document_}, "broken.ppd"},
      {{"media", "--ppd", path("absent.ppd")}, "absent.ppd"},
      {{"print", "--ppd", kPPD, "--output", path("no/such/folder/out.ps"), document_}, "out.ps"},
      {{"print", "-d", "Office", document_}, "127.0.0.1"},
      {{"media"}, "127.0.0.1"},
  };
  for (const Case& check : cases) {
    const Outcome outcome = run(check.words);
    EXPECT_EQ(outcome.status, 3) << ::testing::PrintToString(check.words) << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(check.named));
  }
}

TEST_F(Publishing, WarnsOfAPPDThatWasCutOff) {
  std::string whole = contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD);
  const std::string cut = write("cut.ppd", whole.substr(0, whole.size() / 2));
  const Outcome outcome = run({"media", "--ppd", cut});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors,
              AllOf(HasSubstr("cut.ppd"), HasSubstr("Reinstall the printer's PPD")));
}

// A PPD may hold line breaks and commands for the terminal.
TEST_F(Publishing, ShowsPPDTextsWithoutControlCharacters) {
  std::string text = contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD);
  const std::string tray = "*CoverMediaType Tray2/Tray 2:";
  const std::size_t place = text.find(tray);
  ASSERT_NE(place, std::string::npos);
  text.replace(place, tray.size(), "*CoverMediaType Tray2/A<0A>B<1B>[31m<C29B>x:");
  const std::string ppd = write("odd.ppd", text);
  EXPECT_THAT(run({"media", "--ppd", ppd}).output, HasSubstr("Tray2    A B [31m x\n"));
  const Outcome unknown = run(
      {"print", "--ppd", ppd, "--dry-run", "--cover", "front", "--cover-media", "No", document_});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.errors, HasSubstr("Tray2  A B [31m x\n"));
}

// The printer's PostScript would hold the text as it stands, with its parenthesis left open.
TEST_F(Publishing, RefusesCustomValuesOfThePPDsOptions) {
  const std::string ppd =
      write("custom.ppd", contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD) +
                              "*OpenUI *Note: PickOne\n*DefaultNote: None\n*Note None: \"\"\n"
                              "*CloseUI: *Note\n*CustomNote True: \"pop\"\n"
                              "*ParamCustomNote Text: 1 string 0 40\n");
  for (const char* value : {"Custom.5\\", "{Text=5\\}", "Custom.a\nb"}) {
    const Outcome outcome = run(
        {"print", "--ppd", ppd, "--dry-run", "--option", std::string("Note=") + value, document_});
    EXPECT_EQ(outcome.status, 1) << value;
    EXPECT_THAT(outcome.errors, HasSubstr("Note"));
  }
}

// libcups finds options in any case, so the panel offers them; a job names them as the panel does.
TEST_F(Publishing, SurvivesAPPDThatWritesTheOptionsInAnotherCase) {
  std::string text = contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD);
  for (std::size_t at = 0; (at = text.find("CoverMediaType", at)) != std::string::npos;)
    text.replace(at, 14, "COVERMEDIATYPE");
  const std::string ppd = write("case.ppd", text);
  EXPECT_EQ(run({"media", "--ppd", ppd, "--json"}).status, 0);
  const Outcome outcome = run({"print", "--ppd", ppd, "--dry-run", "--cover", "front",
                               "--cover-media", "Tray2", document_});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, AllOf(HasSubstr("Tray2"), HasSubstr("CoverMediaType")));
}

TEST_F(Publishing, SaysWhichPageIsTheFirstWhenPagesAreLeftOut) {
  const auto outputOf = [this](const Words& options) {
    Words words = {"print", "--ppd", kPPD, "--dry-run"};
    words.insert(words.end(), options.begin(), options.end());
    words.emplace_back("tests/data/report.ps");
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome.output;
  };
  const auto isSaid = HasSubstr("Pages are counted from the first page that is printed.");
  for (const Words& some :
       {Words{"-P", "3-9"}, Words{"-o", "page-ranges=3-9"}, Words{"-o", "page-set=even"}}) {
    Words words = some;
    words.insert(words.end(), {"--insert", "5"});
    EXPECT_THAT(outputOf(words), isSaid);
    EXPECT_THAT(outputOf(some), Not(isSaid));
  }
  EXPECT_THAT(outputOf({"--insert", "5"}), Not(isSaid));
}

TEST_F(Publishing, OffersNoMediaOnAPrinterWithoutTheOptions) {
  const std::string ppd = write("plain.ppd",
                                "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n"
                                "*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
                                "*LanguageEncoding: ISOLatin1\n*PCFileName: \"PLAIN.PPD\"\n"
                                "*Manufacturer: \"Other\"\n*Product: \"(Plain)\"\n"
                                "*ModelName: \"Plain\"\n*ShortNickName: \"Plain\"\n"
                                "*NickName: \"Plain\"\n*PSVersion: \"(3010.000) 1\"\n");
  const Outcome outcome = run({"print", "--ppd", ppd, "--dry-run", "--cover", "front",
                               "--cover-media", "Tray2", document_});
  EXPECT_EQ(outcome.status, 1) << outcome.errors;
  EXPECT_THAT(outcome.errors, HasSubstr("CoverMediaType"));
  EXPECT_EQ(run({"media", "--ppd", ppd, "--json"}).status, 0);
}

TEST_F(Publishing, ShowsHelpAndVersion) {
  for (const Words& words : {Words{"--help"}, Words{"print", "--help"}, Words{"media", "--help"},
                             Words{"pages", "--help"}, Words{"settings", "show", "--help"}}) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("Usage:"));
  }
  EXPECT_THAT(run({"--version"}).output, ::testing::StartsWith("publishing "));
}

}  // namespace
}  // namespace publishing
