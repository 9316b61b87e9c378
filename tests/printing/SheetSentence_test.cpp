// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetSentence.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

#include <gtest/gtest.h>

#include "base/Translation.h"
#include "tests/printing/SheetJobs.h"
#include "tests/sheets/SheetExamples.h"

namespace publishing {
namespace {

const Options kPapers = {{"CoverMediaType", "Coated"}, {"PageMediaType", "Tray2"}};
const Options kReport = kTwoSided + covers("2", "1") + inserts("0", "5,8,12,13,14,") + kPapers;

struct Case {
  const char* name;
  std::optional<int> pages;
  Options options;
  const char* sentence;
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << tried.name;
}

const std::vector<Case>& cases() {
  static const std::vector<Case> kCases = {
      {"CoversAndInserts", 24, kReport,
       "Front and back cover on Coated Paper, page 1 outside; sheets of Tray 2 before pages 5, 8 "
       "and 12\u201314. 21 sheets in all."},
      {"OfUnknownLength", std::nullopt, kReport,
       "Front and back cover on Coated Paper, page 1 outside; sheets of Tray 2 before pages 5, 8 "
       "and 12\u201314."},
      {"Nothing", 24, kTwoSided, "No covers and no inserts. 12 sheets in all."},
      {"NothingOfUnknownLength", std::nullopt, kTwoSided, "No covers and no inserts."},
      {"OneSheet", 1, kOneSided, "No covers and no inserts. 1 sheet in all."},
      {"NoPage", 0, kReport, "There is no page to print."},
      {"FrontCover", 5, kTwoSided + covers("1", "1") + kPapers,
       "Front cover on Coated Paper, page 1 outside. 3 sheets in all."},
      {"BothSidesOfTheFrontCover", 5, kTwoSided + covers("1", "3") + kPapers,
       "Front cover on Coated Paper, page 1 outside and page 2 inside. 3 sheets in all."},
      {"BlankFrontCover", 5, kTwoSided + covers("1", "16") + kPapers,
       "Blank front cover on Coated Paper. 4 sheets in all."},
      {"BlankCovers", std::nullopt, kTwoSided + covers("2", "32") + kPapers,
       "Blank front and back cover on Coated Paper."},
      {"PagesOnBothCovers", 10, kTwoSided + covers("2", "15") + kPapers,
       "Front and back cover on Coated Paper, page 1 outside on the front, page 2 inside on the "
       "front, page 9 inside on the back and page 10 outside on the back. 5 sheets in all."},
      {"PagesOnBothCoversOfUnknownLength", std::nullopt, kTwoSided + covers("2", "15") + kPapers,
       "Front and back cover on Coated Paper, page 1 outside on the front, page 2 inside on the "
       "front, the last page but one inside on the back and the last page outside on the back."},
      {"LastPageInside", std::nullopt, kOneSided + covers("2", "9") + kPapers,
       "Front and back cover on Coated Paper, page 1 outside on the front and the last page inside "
       "on the back."},
      {"TooFewPagesForTheBackCover", 2, kTwoSided + covers("2", "13") + kPapers,
       "Front and back cover on Coated Paper, page 1 outside on the front and page 2 outside on "
       "the back. 2 sheets in all."},
      {"OneInsert", 10, kTwoSided + inserts("0", "5,") + kPapers,
       "A sheet of Tray 2 before page 5. 6 sheets in all."},
      {"PrintedInsert", 10, kTwoSided + inserts("1", "5,") + kPapers,
       "Page 5 on a sheet of Tray 2. 6 sheets in all."},
      {"PrintedInserts", 10, kTwoSided + inserts("1", "5,7,") + kPapers,
       "Pages 5 and 7 on sheets of Tray 2. 7 sheets in all."},
      {"InsertPrintedOnItsBack", 10, kTwoSided + inserts("2", "5,") + kPapers,
       "Page 5 on the back of a sheet of Tray 2. 6 sheets in all."},
      {"InsertsPrintedOnTheirBacks", 10, kTwoSided + inserts("2", "5,7,") + kPapers,
       "Pages 5 and 7 on the backs of sheets of Tray 2. 7 sheets in all."},
      {"InsertPrintedOnBothSides", 10, kTwoSided + inserts("3", "5,") + kPapers,
       "Page 5 on a sheet of Tray 2 printed on both sides. 5 sheets in all."},
      {"InsertsPrintedOnBothSides", 10, kTwoSided + inserts("3", "4,5,6,") + kPapers,
       "Pages 4\u20136 on sheets of Tray 2 printed on both sides. 7 sheets in all."},
      {"InsertsBeyondTheEndAreLeftOut", 10, kTwoSided + inserts("0", "5,400,") + kPapers,
       "A sheet of Tray 2 before page 5. 6 sheets in all."},
      {"InsertsOnCoversAreLeftOut", std::nullopt,
       kTwoSided + covers("1", "3") + inserts("0", "2,3,") + kPapers,
       "Front cover on Coated Paper, page 1 outside and page 2 inside; a sheet of Tray 2 before "
       "page 3."},
      {"NoInsertIsLeft", 3, kTwoSided + inserts("0", "400,") + kPapers,
       "No covers and no inserts. 2 sheets in all."},
      {"Copies", 5, kOneSided + covers("1", "1") + kPapers + Options{{"copies", "2"}},
       "Front cover on Coated Paper, page 1 outside. 10 sheets in all for 2 copies."},
      {"ThePrintersChoiceOfPaper", 5,
       kOneSided + covers("1", "1") + Options{{"CoverMediaType", "PrnDef"}},
       "Front cover on Printer Default, page 1 outside. 5 sheets in all."},
      {"APageRange", 24, kReport + Options{{"page-ranges", "11-20"}},
       "Front and back cover on Coated Paper, page 1 outside; sheets of Tray 2 before pages 5 and "
       "8. 10 sheets in all. Pages are counted from the first page that is printed."},
      {"SeveralPagesOnASide", 24, kReport + Options{{"number-up", "4"}},
       "No covers and no inserts. 3 sheets in all."}};
  return kCases;
}

class SheetSentence : public ::testing::TestWithParam<Case> {};

TEST_P(SheetSentence, SaysWhatComesOut) {
  EXPECT_EQ(sentenceOf(sheetsOf(GetParam().options, GetParam().pages)), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(Jobs, SheetSentence, ::testing::ValuesIn(cases()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(SheetSentence, DoesNotNeedAPrinterThatIsKnown) {
  EXPECT_EQ(sentenceOf(sheetsOf(kOneSided + covers("1", "1"), nullptr, 3)),
            "Front cover on Leather, page 1 outside. 3 sheets in all.");
}

// The table above and that of the plans, in each language that has a file of sentences. The target
// update-sentences writes the files anew; someone who knows the language should read them.

std::filesystem::path folderOfSentences() {
  return TEST_DATA "/sentences";
}

std::vector<std::string> languages() {
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(folderOfSentences()))
    found.push_back(entry.path().stem());
  return found;
}

std::string sentences() {
  std::string text;
  for (const Case& each : cases())
    text += std::string(each.name) + ": " + sentenceOf(sheetsOf(each.options, each.pages)) + '\n';
  for (const SheetExample& each : sheetExamples())
    text += std::string(each.name) + ": " +
            sentenceOf(sheetsOf(each.options + kPapers, each.pages)) + '\n';
  return text;
}

class SheetSentenceIn : public ::testing::TestWithParam<std::string> {};

TEST_P(SheetSentenceIn, ReadsAsBefore) {
  setenv("PUBLISHING_LOCALE_DIR", LOCALE_FOLDER, 1);
  setenv("LANGUAGE", GetParam().c_str(), 1);
  std::setlocale(LC_ALL, "C.UTF-8");
  bindTranslations();
  const std::string text = sentences();
  std::setlocale(LC_ALL, "C");
  const std::filesystem::path path = folderOfSentences() / (GetParam() + ".txt");
  if (std::getenv("UPDATE_GOLDEN") != nullptr) std::ofstream(path) << text;
  EXPECT_EQ(text, contentsOfFile(path));
}

INSTANTIATE_TEST_SUITE_P(Languages, SheetSentenceIn, ::testing::ValuesIn(languages()),
                         [](const auto& one) { return one.param; });

}  // namespace
}  // namespace publishing
