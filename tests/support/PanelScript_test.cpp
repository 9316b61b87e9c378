// SPDX-License-Identifier: Apache-2.0
#include "tests/support/PanelScript.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/wait.h>

#include "tests/support/HeadlessStage.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Property;
using testing::ThrowsMessage;

class PanelScriptTest : public testing::Test {
 protected:
  // Runs the lines and gives all that was written so far.
  std::string run(const std::string& lines) {
    std::istringstream commands(lines);
    script.run(commands);
    return output.str();
  }

  // The panel's state after the lines.
  json stateAfter(const std::string& lines) {
    run(lines);
    output.str("");
    script.runLine("dump");
    return json::parse(output.str());
  }

  static std::string printer() {
    return std::string("ppd ") + TEST_DATA + "/zephrel-ps-9000.ppd\nview\n";
  }

  std::ostringstream output;
  PanelScript script{
      [](AlertSink alerts) { return std::make_unique<HeadlessStage>(std::move(alerts)); }, output};
};

TEST_F(PanelScriptTest, SkipsCommentsAndEmptyLines) {
  EXPECT_EQ(run("\n# dump\n\n#\n#dump"), "");
}

TEST_F(PanelScriptTest, StopsAtWhatItDoesNotKnow) {
  for (const char* line :
       {"jump", "View", " view", "click Nope", "click CmMediaType", "click", "choose CmCheckBox 1",
        "choose CmMediaType", "choose CmMediaType first", "radio", "radio x", "radio 1 2", "tab -",
        "duplex", "duplex two", "dictionary", "dictionary no", "ppd", "ppd no/such/file.ppd"}) {
    EXPECT_THROW(run(line), std::runtime_error) << line;
  }
}

TEST_F(PanelScriptTest, NamesTheLineAndTheFault) {
  EXPECT_THAT(
      [this] { run("# first\n\nclick Nope\nview\n"); },
      ThrowsMessage<std::runtime_error>(testing::AllOf(HasSubstr("line 3"), HasSubstr("'Nope'"))));
  EXPECT_THAT([this] { run("jump 3\n"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("unknown command 'jump'")));
}

TEST_F(PanelScriptTest, KeepsTheOutputBeforeTheFault) {
  EXPECT_THROW(run("restore\njump\nsave\n"), std::runtime_error);
  EXPECT_EQ(output.str(), "{\"restore\":true}\n");
}

TEST_F(PanelScriptTest, ControlsAreNullBeforeTheView) {
  const json state = stateAfter("# nothing");
  EXPECT_TRUE(state["controls"].is_null());
  EXPECT_TRUE(state["fields"]["pageNumValue"].is_null());
  EXPECT_EQ(state["settings"], json::object());
}

TEST_F(PanelScriptTest, GesturesBeforeTheViewDoNothing) {
  const json before = stateAfter("# nothing");
  EXPECT_EQ(stateAfter("click CmCheckBox\nradio 0\nchoose CmMediaType 1\ntype 5\ntab 1\n"), before);
}

TEST_F(PanelScriptTest, ValuesAreTheRestOfTheLine) {
  const json state =
      stateAfter("set Key two  words \nset Empty\nset Space  \nset Gone x\nunset Gone");
  EXPECT_EQ(state["settings"], (json{{"Key", "two  words "}, {"Empty", ""}, {"Space", " "}}));
}

TEST_F(PanelScriptTest, DumpListsEveryControlAndField) {
  const json state = stateAfter(printer());
  EXPECT_EQ(state["controls"].size(), 15u);
  for (const char* box :
       {"CmCheckBox", "CmFrontOutside", "CmFrontInside", "CmBackOutside", "CmBackInside",
        "TiCheckBox", "TiPrintOnBack", "PiCheckBox", "PiPrintOnBack", "PiPrintOnFront"}) {
    EXPECT_EQ(state["controls"][box]["state"], 0) << box;
  }
  EXPECT_EQ(state["controls"]["tabs"], (json{"Cover Mode", "Page Insert"}));
  EXPECT_EQ(state["controls"]["CmMediaType"]["items"][3],
            (json{{"title", "Thick Paper (épais)"}, {"enabled", true}}));
  EXPECT_EQ(state["fields"].size(), 16u);
}

TEST_F(PanelScriptTest, DumpIsSortedAndStable) {
  script.runLine("dump");
  const std::string once = output.str();
  script.runLine("dump");
  EXPECT_EQ(output.str(), once + once);
  EXPECT_THAT(once, testing::StartsWith("{\"controls\":null,\"fields\":{\"cmIndex\":0,"));
}

TEST_F(PanelScriptTest, DumpReplacesBytesThatAreNotUTF8) {
  EXPECT_EQ(stateAfter("set Key a\xff")["settings"]["Key"], "a\xEF\xBF\xBD");
}

TEST_F(PanelScriptTest, GesturesOutsideTheRangeDoNothing) {
  const json before = stateAfter(printer() + "restore\nclick CmCheckBox\n");
  EXPECT_EQ(stateAfter("radio 2\nradio -1\nchoose CmMediaType 11\nchoose CmMediaType -1\ntab 2\n"
                       "tab -1\ntab 0\n"),
            before);
}

TEST_F(PanelScriptTest, DisabledControlsAndItemsDoNothing) {
  const json before =
      stateAfter(printer() + "mark CoverMediaType Coated\nrestore\nshow\nclick CmCheckBox\n");
  ASSERT_EQ(before["controls"]["CmMediaType"]["items"][7]["enabled"], false);
  EXPECT_EQ(stateAfter("choose CmMediaType 7\nclick CmBackInside\nclick PiPrintOnFront\ntype 5\n"
                       "choose PiMediaType 1\n"),
            before);
}

TEST_F(PanelScriptTest, ClickOnTheSelectedRadioCellSendsAgain) {
  run(printer() + "restore\nclick CmCheckBox\nclick CmFrontOutside\n");
  EXPECT_EQ(stateAfter("radio 0")["controls"]["CmFrontOutside"]["state"], 0);
}

TEST_F(PanelScriptTest, RefusedKeystrokeIsLeftOut) {
  run(printer() + "restore\nclick PiCheckBox\n");
  EXPECT_EQ(stateAfter("type é5x, 7-9")["controls"]["PiPageNum"]["text"], "5,7-9");
  EXPECT_EQ(stateAfter("type")["controls"]["PiPageNum"]["text"], "");
}

TEST_F(PanelScriptTest, AlertsAndPushesAreWrittenAsTheyHappen) {
  run(printer() + "restore\nclick PiCheckBox\n");
  output.str("");
  EXPECT_EQ(run("save"),
            "{\"alert\":{\"button\":\"OK\",\"message\":\"Please type a page range.\","
            "\"title\":\"Page Number Error\"}}\n"
            "{\"push\":{\"choice\":\"PrnDef\",\"option\":\"PageMediaType\"}}\n"
            "{\"save\":false}\n");
}

TEST_F(PanelScriptTest, PushIsNeitherMarkedNorStored) {
  const json state =
      stateAfter(printer() + "restore\nclick CmCheckBox\nchoose CmMediaType 4\nsave\nshow\n");
  EXPECT_FALSE(state["settings"].contains("CoverMediaType"));
  EXPECT_EQ(state["controls"]["CmMediaType"]["items"][7]["enabled"], true);  // Coated is not marked
}

TEST_F(PanelScriptTest, FailedPPDKeepsThePresentOne) {
  run(printer());
  EXPECT_THROW(run("ppd no/such/file.ppd"), std::runtime_error);
  EXPECT_EQ(stateAfter("show")["controls"]["CmMediaType"]["items"].size(), 11u);
}

TEST_F(PanelScriptTest, MarkWithoutPPDIsIgnored) {
  EXPECT_EQ(run("ppd none\nmark InputSlot Tray1\n"), "");
}

class PanelScriptProgram : public testing::Test {
 protected:
  // Runs the program on a script of these lines and answers its exit status.
  int statusOf(const std::string& lines) {
    const std::string script = folder.file("script", lines);
    const std::string command = PANEL_SCRIPT " " + script + " 2>" + folder / "errors";
    return WEXITSTATUS(std::system(command.c_str()));
  }
  [[nodiscard]] std::string errors() const { return contentsOfFile(folder / "errors"); }

  const TemporaryFolder folder;
};

TEST_F(PanelScriptProgram, UnknownCommandOrNameEndsWithStatus2AndAMessage) {
  EXPECT_EQ(statusOf("view\njump\n"), 2);
  EXPECT_EQ(errors(), "panel-script: line 2: unknown command 'jump'\n");
  EXPECT_EQ(statusOf("click Nope\n"), 2);
  EXPECT_THAT(errors(), HasSubstr("'Nope'"));
}

TEST_F(PanelScriptProgram, MissingScriptEndsWithStatus2) {
  EXPECT_EQ(WEXITSTATUS(std::system(PANEL_SCRIPT " no/such/script 2>/dev/null")), 2);
}

TEST_F(PanelScriptProgram, ReadsStandardInputOrFilesAndEndsWithStatus0) {
  EXPECT_EQ(statusOf("view\nset Key value\n"), 0);
  EXPECT_EQ(errors(), "");
  EXPECT_EQ(WEXITSTATUS(std::system("echo view | " PANEL_SCRIPT)), 0);
}

}  // namespace
}  // namespace publishing
