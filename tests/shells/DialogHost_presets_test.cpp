// SPDX-License-Identifier: Apache-2.0
// Presets in a print dialog that has no toolkit.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/presets/Presets.h"
#include "tests/printing/Samples.h"
#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A user who gives the same answers each time.
class Answers final : public PresetQuestions {
 public:
  std::optional<std::string> name;
  bool confirms = false;
  std::vector<std::string> heard;
  std::function<void()> onQuestion = [] {};

  std::optional<std::string> askName() override {
    onQuestion();
    return name;
  }
  bool confirmsReplacing(const std::string& preset) override {
    return confirm("replace " + preset);
  }
  bool confirmsDeleting(const std::string& preset) override { return confirm("delete " + preset); }
  void tell(const std::string& problem) override { heard.push_back(problem); }

 private:
  bool confirm(const std::string& question) {
    heard.push_back(question);
    onQuestion();
    return confirms;
  }
};

class DialogPresetsTest : public DialogHostTest {
 protected:
  // Covers on leather and a list of pages, in the panel.
  void makeReport() {
    dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
    box("CmCheckBox").click();
    covers().click(1);
    popUp("CmMediaType").choose(5);
    box("CmFrontInside").click();
    box("PiCheckBox").click();
    pages().type("5,8");
    popUp("PiMediaType").choose(2);
  }
  void saveAs(const std::string& name) {
    answers.name = name;
    dialog.host().savePreset(answers);
  }
  void use(const std::string& name) { dialog.host().usePreset(name, answers); }
  static std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const StoredPreset& stored : Presets().list().presets)
      names.push_back(stored.preset.name);
    return names;
  }

  Answers answers;
};

TEST_F(DialogPresetsTest, WhatThePanelShowsIsSavedAndTakenUpAgain) {
  choose(office);
  makeReport();
  saveAs("Report");
  EXPECT_THAT(names(), ElementsAre("Report"));
  EXPECT_THAT(answers.heard, IsEmpty());
  EXPECT_THAT(stored(office), IsEmpty());

  choose(studio);
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  use("report");
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_EQ(covers().selectedColumn(), 1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 5);
  EXPECT_EQ(box("CmFrontInside").state(), 1);
  EXPECT_EQ(pages().stringValue(), "5,8");
  EXPECT_EQ(popUp("PiMediaType").indexOfSelectedItem(), 2);
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Leather");
  EXPECT_EQ(dialog.notices(), "");
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtPageinsertNums"], "5,8,");
}

TEST_F(DialogPresetsTest, APresetReplacesAllThatWasChosen) {
  Presets().store({.name = "Plain"}, Presets::Existing::Keep);
  choose(office);
  makeReport();
  use("Plain");
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 0);
  box("PiCheckBox").click();
  EXPECT_EQ(pages().stringValue(), "");
  box("PiCheckBox").click();
  ASSERT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "Off");
}

// Never silently another medium.
TEST_F(DialogPresetsTest, WhatThePrinterDoesNotHaveIsSaid) {
  choose(office);
  makeReport();
  saveAs("Report");
  choose(folder.file(
      "Other.ppd", changedPPD("CoverMediaType Leather/Leather Grain", "CoverMediaType Hide/Hide")));
  use("Report");
  EXPECT_THAT(dialog.notices(), HasSubstr("is not offered for covers"));
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 1);
}

TEST_F(DialogPresetsTest, WhatTheJobCannotHaveIsSaidAndComesWhenItCan) {
  choose(office);
  makeReport();
  saveAs("Report");
  choose(studio);
  use("Report");
  EXPECT_THAT(dialog.notices(), HasSubstr("two-sided"));
  EXPECT_EQ(box("CmFrontInside").state(), 0);
  dialog.change([](DialogJob& job) { job.sides = Sides::TwoSidedLongEdge; });
  EXPECT_EQ(box("CmFrontInside").state(), 1);
  dialog.change([](DialogJob& job) { job.reverse = true; });
  use("Report");
  EXPECT_THAT(dialog.notices(), HasSubstr("reverse output order"));
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  saveAs("Nothing");
  EXPECT_THAT(answers.heard, ElementsAre(HasSubstr("reverse output order")));
  EXPECT_THAT(names(), ElementsAre("Report"));
  dialog.change([](DialogJob& job) { job.reverse = false; });
  EXPECT_EQ(box("CmCheckBox").state(), 1);
}

TEST_F(DialogPresetsTest, AListThatThePanelRefusesIsNotSaved) {
  choose(office);
  box("PiCheckBox").click();
  pages().type("9-5");
  saveAs("Report");
  EXPECT_THAT(dialog.alerts, ElementsAre(HasSubstr("range")));
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(pages().stringValue(), "9-5");
}

TEST_F(DialogPresetsTest, OneThatIsThereIsReplacedOnlyIfTheUserWants) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  choose(office);
  makeReport();
  saveAs("REPORT");
  EXPECT_THAT(answers.heard, ElementsAre("replace REPORT"));
  EXPECT_FALSE(Presets().find("Report").preset.hasCover());
  answers.confirms = true;
  saveAs("REPORT");
  EXPECT_TRUE(Presets().find("Report").preset.hasCover());
  EXPECT_THAT(names(), ElementsAre("REPORT"));
  answers.name.reset();
  dialog.host().savePreset(answers);
  EXPECT_THAT(names(), ElementsAre("REPORT"));
}

TEST_F(DialogPresetsTest, OneIsDeletedOnlyIfTheUserWants) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  choose(office);
  dialog.host().deletePreset("Report", answers);
  EXPECT_THAT(names(), ElementsAre("Report"));
  answers.confirms = true;
  dialog.host().deletePreset("Report", answers);
  EXPECT_THAT(names(), IsEmpty());
  dialog.host().deletePreset("Report", answers);
  EXPECT_THAT(answers.heard.back(), HasSubstr("no preset named"));
  use("Report");
  EXPECT_THAT(answers.heard.back(), HasSubstr("no preset named"));
}

TEST_F(DialogPresetsTest, TheDialogMayGoWhileSomethingIsAsked) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  choose(office);
  makeReport();
  answers.confirms = true;
  answers.onQuestion = [this] { dialog.loseHost(); };
  saveAs("Other");
  EXPECT_THAT(names(), ElementsAre("Report"));
}

TEST_F(DialogPresetsTest, WithoutThePanelNothingHappens) {
  Presets().store({.name = "Report"}, Presets::Existing::Keep);
  dialog.selectFile();
  use("Report");
  saveAs("Other");
  EXPECT_THAT(names(), ElementsAre("Report"));
  EXPECT_THAT(answers.heard, IsEmpty());
}

}  // namespace
}  // namespace publishing
