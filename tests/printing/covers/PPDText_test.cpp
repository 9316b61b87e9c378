// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/PPDText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The statements' own bytes.
std::vector<std::string> linesOf(std::string_view ppd) {
  std::vector<std::string> lines;
  for (const PPDStatement& statement : statementsOf(ppd))
    lines.emplace_back(ppd.substr(statement.begin, statement.end - statement.begin));
  return lines;
}

TEST(PPDText, ReadsTheFourPartsOfAStatement) {
  const struct {
    const char* line;
    const char* keyword;
    const char* option;
    const char* text;
    const char* value;
  } table[] = {
      {"*InputSlot Tray2/Tray 2: \"code\"\n", "InputSlot", "Tray2", "Tray 2", "code"},
      {"*InputSlot Tray2: \"code\"\n", "InputSlot", "Tray2", "", "code"},
      {"*InputSlot\tTray2 / Tray 2:\"code\"  \n", "InputSlot", "Tray2", " Tray 2", "code"},
      {"*de.InputSlot Tray2/Fach <41>: \"\"\n", "de.InputSlot", "Tray2", "Fach <41>", ""},
      {"*OpenUI *InputSlot/Paper Source: PickOne\n", "OpenUI", "*InputSlot", "Paper Source",
       "PickOne"},
      {"*UIConstraints: *InputSlot  Tray1 \t*Duplex  \r\n", "UIConstraints", "", "",
       "*InputSlot  Tray1 \t*Duplex"},
      {"*InputSlot Tray2/A \"quoted\" text: \"code\"\n", "InputSlot", "Tray2", "A \"quoted\" text",
       "code"},
      {"*InputSlot Tray2/Tray 2: \"one\r\ntwo\"\n", "InputSlot", "Tray2", "Tray 2", "one\r\ntwo"},
      {"*FoomaticRIPOptionSetting InputSlot=Tray2: \" -d\"\n", "FoomaticRIPOptionSetting",
       "InputSlot=Tray2", "", " -d"},
      {"*End\n", "End", "", "", ""},
      {"*%InputSlot Tray2/Tray 2: \"code\"\n", "", "", "", ""},
      {"no statement: at all\n", "", "", "", ""},
      {"*Unfinished: \"value", "Unfinished", "", "", "value"},
      {"*:\n", "", "", "", ""},
      {"*", "", "", "", ""},
  };
  for (const auto& row : table) {
    const auto statements = statementsOf(row.line);
    ASSERT_EQ(statements.size(), 1U) << row.line;
    EXPECT_EQ(statements[0].keyword, row.keyword) << row.line;
    EXPECT_EQ(statements[0].option, row.option) << row.line;
    EXPECT_EQ(statements[0].text, row.text) << row.line;
    EXPECT_EQ(statements[0].value, row.value) << row.line;
  }
}

TEST(PPDText, CutsAtEveryLineEndOutsideQuotes) {
  EXPECT_THAT(linesOf("*A: 1\n\n*B: \"x\ny\"\n*C: 3"),
              ElementsAre("*A: 1\n", "\n", "*B: \"x\ny\"\n", "*C: 3"));
  EXPECT_THAT(linesOf("*A: 1\r\n\r\n*B: \"x\r\ny\"\r\n"),
              ElementsAre("*A: 1\r\n", "\r\n", "*B: \"x\r\ny\"\r\n"));
  EXPECT_THAT(linesOf("*A: 1\r\r*B: \"x\ry\"\r"), ElementsAre("*A: 1\r", "\r", "*B: \"x\ry\"\r"));
  EXPECT_THAT(linesOf(""), IsEmpty());
}

TEST(PPDText, QuotesCountBehindTheColonOfAStatementOnly) {
  EXPECT_THAT(linesOf("*% 5\": a comment\n*A 5\"/5\": \"\"\n*B: 1\n"),
              ElementsAre("*% 5\": a comment\n", "*A 5\"/5\": \"\"\n", "*B: 1\n"));
}

TEST(PPDText, NamesTheLineEndOfTheFirstLine) {
  EXPECT_EQ(lineEndOf("*A: 1\n*B: 2\r\n"), "\n");
  EXPECT_EQ(lineEndOf("*A: 1\r\n*B: 2\n"), "\r\n");
  EXPECT_EQ(lineEndOf("*A: 1\r*B: 2\n"), "\r");
  EXPECT_EQ(lineEndOf("*A: 1"), "\n");
}

TEST(PPDText, CutsWords) {
  EXPECT_THAT(wordsOf(" \t*A  b\r\n*C\t"), ElementsAre("*A", "b", "*C"));
  EXPECT_THAT(wordsOf("  "), IsEmpty());
}

TEST(PPDText, ComparesWithoutTheCaseOfASCIILettersAlone) {
  EXPECT_TRUE(sameKeyword("InputSlot", "INPUTslot"));
  EXPECT_FALSE(sameKeyword("Tray", "Tray2"));
  EXPECT_FALSE(sameKeyword("Gr\xC3\xA4", "Gr\xC3\x84"));
}

}  // namespace
}  // namespace publishing
