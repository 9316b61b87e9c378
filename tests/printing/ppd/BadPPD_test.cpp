// SPDX-License-Identifier: Apache-2.0
// PPDs that break the rules, from the file to the panel's model: docs/bad-inputs.md.
#include <optional>

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDInfo.h"
#include "printing/ppd/PPDDocument.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pointee;
using ::testing::SizeIs;

class BadPPD : public ::testing::Test {
 protected:
  // Opens the text as a PPD and loads the panel's model from it.
  PPDDocument open(const std::string& text) {
    PPDDocument ppd = PPDDocument::openFile(folder_.file("bad.ppd", text));
    model_ = PPDInfo();
    model_.loadPPDFile(ppd.get());
    model_.loadConstraintsOnlyFor({cInputSlot}, ppd.get());
    return ppd;
  }

  static std::vector<std::string> keywordsOf(const PPDDocument& ppd, const char* option) {
    std::vector<std::string> keywords;
    for (const PPDChoice& choice : ppd.choices(option))
      keywords.push_back(choice.choice);
    return keywords;
  }

  TemporaryFolder folder_;
  PPDInfo model_;
};

constexpr const char* kTray2 = "*InputSlot Tray2/Tray 2:";

TEST_F(BadPPD, AnOptionListedTwiceBecomesOne) {
  const PPDDocument ppd = open(contentsOfFile(kSamplePPD) +
                               "*OpenUI *InputSlot/Again: PickOne\n*DefaultInputSlot: Tray3\n"
                               "*InputSlot Tray3/Third: \"\"\n*InputSlot Tray8/Eighth: \"\"\n"
                               "*CloseUI: *InputSlot\n");
  const std::vector<std::string> keywords = keywordsOf(ppd, cInputSlot);
  EXPECT_EQ(keywords.back(), "Tray8");
  EXPECT_THAT(model_.allChoicesForOption(cInputSlot), Pointee(ElementsAreArray(keywords)));
  EXPECT_EQ(model_.currentMarkedChoiceForOption(cInputSlot), "Tray3");
}

TEST_F(BadPPD, AChoiceListedTwiceIsMarkedOnce) {
  PPDDocument ppd = open(
      changedPPD("*InputSlot Tray3/", "*InputSlot Tray2/Second Again: \"\"\n*InputSlot Tray3/"));
  EXPECT_TRUE(ppd.mark(cInputSlot, "Tray2"));
  int marked = 0;
  for (const PPDChoice& choice : ppd.choices(cInputSlot))
    marked += choice.marked ? 1 : 0;
  EXPECT_EQ(marked, 1);
}

TEST_F(BadPPD, ATextThatIsCutInsideACharacterStaysValid) {
  std::string text;
  for (int i = 0; i < 50; ++i)
    text += "é";
  for (const char* before : {"", "x"}) {
    const PPDDocument ppd =
        open(changedPPD(kTray2, std::string("*InputSlot Tray2/") + before + text + ":"));
    EXPECT_THAT(ppd.choice(cInputSlot, "Tray2")->choiceText,
                AllOf(HasSubstr("éé"), SizeIs(Ge(70))));
    EXPECT_TRUE(g_utf8_validate(ppd.choice(cInputSlot, "Tray2")->choiceText.c_str(), -1, nullptr));
  }
}

TEST_F(BadPPD, ANULOrASpaceInsideAChoiceLosesThatChoiceOnly) {
  for (const std::string& line :
       {std::string("*InputSlot Tr\0ay2/Tray 2:", 25), std::string("*InputSlot Tr ay2/Tray 2:")}) {
    const PPDDocument ppd = open(changedPPD(kTray2, line));
    EXPECT_EQ(ppd.choice(cInputSlot, "Tray2"), std::nullopt);
    EXPECT_NE(ppd.choice(cInputSlot, "Tray1"), std::nullopt);
    EXPECT_TRUE(model_.willAllowChangeOfOption(cInputSlot, "Tray1"));
  }
}

TEST_F(BadPPD, QuotesInAChoiceStayInIt) {
  PPDDocument ppd = open(changedPPD("*CoverMediaType Tray2/", "*CoverMediaType a\"b'c/"));
  EXPECT_TRUE(ppd.mark(cCoverMediaType, "a\"b'c"));
  JobTicket ticket;
  ticket.setValue(cCoverMediaType, "a\"b'c");
  EXPECT_THAT(ticket.jobOptions(), ElementsAre(::testing::Pair(cCoverMediaType, "a\"b'c")));
}

TEST_F(BadPPD, LineEndsOfOtherSystemsAreTheSame) {
  const std::string text = contentsOfFile(kSamplePPD);
  const std::vector<std::string> expected = keywordsOf(open(text), cCoverMediaType);
  for (const char* end : {"\r", "\r\n"}) {
    const PPDDocument ppd = open(changedPPD("\n", end));
    EXPECT_EQ(keywordsOf(ppd, cCoverMediaType), expected);
    EXPECT_THAT(ppd.warnings(), IsEmpty());
  }
}

TEST_F(BadPPD, ALineThatIsTooLongIsNamed) {
  const PrintError error =
      errorOf([&] { open(contentsOfFile(kSamplePPD) + "*% " + std::string(300, 'x') + "\n"); });
  EXPECT_THAT(error.what(), AllOf(HasSubstr("bad.ppd"), HasSubstr("line 187: Line longer")));
}

// libcups reads it when it is complete and drops it otherwise; the model has what libcups has.
TEST_F(BadPPD, AConstraintWithoutAsterisksIsReportedAndReadIfComplete) {
  const struct {
    const char* line;
    std::optional<bool> forbids;
    bool reported;
  } table[] = {
      {"", false, false},
      {"*UIConstraints: *InputSlot Tray4 *Duplex DuplexTumble\n", true, false},
      {"*UIConstraints: InputSlot Tray4 Duplex DuplexTumble\n", true, true},
      // libcups leaves the second option to what the memory held before.
      {"*UIConstraints: InputSlot Duplex\n", std::nullopt, true},
  };
  for (const auto& row : table) {
    PPDDocument ppd = open(contentsOfFile(kSamplePPD) + row.line);
    ppd.mark({{"Duplex", "DuplexTumble"}, {cInputSlot, "Tray4"}});
    model_.reloadMarkedChoices(ppd.get());
    if (row.forbids) {
      EXPECT_EQ(!model_.willAllowChangeOfOption(cInputSlot, "Tray4"), *row.forbids) << row.line;
      EXPECT_EQ(!ppd.conflicts().empty(), *row.forbids) << row.line;
    }
    EXPECT_EQ(!ppd.warnings().empty(), row.reported) << row.line;
  }
}

}  // namespace
}  // namespace publishing
