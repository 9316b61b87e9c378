// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/SheetWriter.h"

#include <ostream>

#include <gmock/gmock.h>

#include "tests/printing/dsc/Pieces.h"
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class TextSink : public ByteSink {
 public:
  void write(std::string_view bytes) override { text += bytes; }
  std::string text;
};

// A page as CUPS's filters write it.
std::string page(int number, const std::string& contents = {}) {
  const std::string text = std::to_string(number);
  return "%%Page: " + text + " " + text + "\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n" +
         "%%EndPageSetup\n(" + text + ") show" + contents + "\nshowpage\n%%PageTrailer\n";
}

std::string document(int pages, const std::string& contents = {}) {
  std::string text =
      "%!PS-Adobe-3.0\n%%Pages: (atend)\n%%EndComments\n%%BeginProlog\n%%EndProlog\n"
      "%%BeginSetup\n/s 1 def\n%%EndSetup\n";
  for (int number = 1; number <= pages; ++number)
    text += page(number, contents);
  return text + "%%Trailer\nend\n%%Pages: " + std::to_string(pages) + "\n%%EOF\n";
}

SheetOrder order(const Options& options) {
  return orderOf(options + Options{{"CoverMediaType", "Leather"}, {"PageMediaType", "Blue"}});
}

SheetCode code() {
  return {"/p 1 def\n",
          {{"", "to Body\n"}, {"Leather", "to Leather\n"}, {"Blue", "to Blue\n"}},
          "again\n"};
}

std::string written(const SheetOrder& sheets, const std::string& text) {
  TextSink sink;
  SheetWriter writer(sheets, code(), sink);
  DscReader reader(sourceOf(text));
  while (const auto piece = reader.next())
    writer.write(*piece);
  writer.finish();
  return sink.text;
}

// "L1 - B2 3": what is printed side by side, with the medium where it changes.
std::string sidesOf(const std::string& text) {
  std::string sides;
  std::string medium;
  DscReader reader(sourceOf(text));
  int ordinal = 0;
  std::string side;
  const auto endSide = [&] {
    if (!side.empty()) sides += (sides.empty() ? "" : " ") + medium + side;
    medium.clear();
  };
  while (const auto piece = reader.next()) {
    const std::string bytes(piece->bytes);
    if (piece->comment == DscComment::Page) {
      endSide();
      side = "-";
      EXPECT_THAT(bytes, ::testing::EndsWith(" " + std::to_string(++ordinal) + "\n"));
    } else if (piece->section == DscSection::Page) {
      if (const auto place = bytes.find("to "); place != bytes.npos)
        medium = bytes.substr(place + 3, 1);
      if (const auto place = bytes.find(") show"); place != bytes.npos)
        side = bytes.substr(bytes.rfind('(', place) + 1, place - bytes.rfind('(', place) - 1);
    }
  }
  endSide();
  EXPECT_THAT(text, HasSubstr("\n%%Pages: " + std::to_string(ordinal) + "\n%%EOF\n"));
  return sides;
}

struct Case {
  const char* name;
  int pages;
  Options options;
  const char* sides;
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << tried.pages << " pages";
}

const Case kCases[] = {
    {"FrontCoverPrintedOutside", 5, kTwoSided + covers("1", "1"), "L1 - B2 3 4 5"},
    {"FrontCoverPrintedInside", 5, kTwoSided + covers("1", "2"), "L- 1 B2 3 4 5"},
    {"BothCoversOneSided", 5, kOneSided + covers("2", "9"), "L1 B2 3 4 L5"},
    {"BothCoversTwoSided", 10, kTwoSided + covers("2", "5"), "L1 - B2 3 4 5 6 7 8 9 L- 10"},
    {"MorePlacesThanPages", 2, kTwoSided + covers("2", "13"), "L1 - - 2"},
    {"BlankInserts", 10, kTwoSided + inserts("0", "5,8,"), "1 2 3 4 U- - B5 6 7 - U- - B8 9 10 -"},
    {"PrintedInserts", 10, kTwoSided + inserts("3", "4,5,6,"), "1 2 3 - U4 - 5 - 6 7 B8 9 10 -"},
    {"CollatedCopies", 3,
     kTwoSided + covers("2", "5") + Options{{"copies", "2"}, {"Collate", "true"}},
     "L1 - B2 - L- 3 L1 - B2 - L- 3"},
    {"UncollatedCopiesAreThePrinters", 3,
     kTwoSided + covers("2", "5") + Options{{"copies", "2"}, {"Collate", "false"}},
     "L1 - B2 - L- 3"},
    {"BlankBackCover", 1, kTwoSided + covers("2", "1"), "L1 - - -"},
    {"InsertBesideCover", 3, kOneSided + covers("1", "16") + inserts("1", "1,"), "L- U1 B2 3"},
};

class Sheets : public ::testing::TestWithParam<Case> {};

TEST_P(Sheets, ComeOutSideBySide) {
  Case tried = GetParam();
  std::string text = written(order(tried.options), document(tried.pages));
  // "Blue" begins with the letter of "Body".
  for (std::size_t place = 0; (place = text.find("to Blue", place)) != text.npos; ++place)
    text.replace(place, 4, "to U");
  EXPECT_EQ(sidesOf(text), tried.sides);
}

INSTANTIATE_TEST_SUITE_P(SheetWriter, Sheets, ::testing::ValuesIn(kCases),
                         [](const auto& tried) { return std::string(tried.param.name); });

TEST(SheetWriter, WritesPagesWithEveryByteTheyHave) {
  const std::string binary("\n%%BeginBinary: 30\n\0\377%%Page: 3 3\n%%Trailer\n%%EOF\nx\r\n", 50);
  const std::string text = written(order(kTwoSided + covers("2", "5")), document(4, binary));
  for (int number = 1; number <= 4; ++number) {
    const std::string contents = page(number, binary);
    EXPECT_THAT(text, HasSubstr(contents.substr(contents.find("%%EndPageSetup"))));
  }
}

TEST(SheetWriter, PutsItsCodeIntoTheSetups) {
  const std::string text = written(order(kTwoSided + covers("1", "1")), document(2));
  EXPECT_THAT(text, HasSubstr("%!PS-Adobe-3.0\n%PublishingSheets: 1\n%%Pages: (atend)\n"));
  EXPECT_THAT(text, HasSubstr("/s 1 def\n/p 1 def\n%%EndSetup\n"));
  EXPECT_THAT(text, HasSubstr("%%Page: 1 1\n%%PageBoundingBox: 0 0 595 842\n%%BeginPageSetup\n"
                              "to Leather\n%%EndPageSetup\n(1)"));
  EXPECT_THAT(text, HasSubstr("%%Page: (blank) 2\n"));
}

TEST(SheetWriter, MakesTheSetupsThatADocumentLacks) {
  const std::string text = written(order(kOneSided + covers("2", "9")),
                                   "%!PS-Adobe-3.0\n%%Page: one 1\n%%PageMedia: x\n(1) show\n"
                                   "%%Page: (a (b) c) 2\n(2) show\n%%Page: 3 3\n(3) show");
  EXPECT_THAT(text, HasSubstr("%%BeginSetup\n/p 1 def\n%%EndSetup\n%%Page: one 1\n%%PageMedia: x\n"
                              "%%BeginPageSetup\nto Leather\n%%EndPageSetup\n(1) show\n"
                              "%%Page: (a (b) c) 2\n%%BeginPageSetup\nto Body\n%%EndPageSetup\n"
                              "(2) show\n%%Page: 3 3\n%%BeginPageSetup\nto Leather\n"
                              "%%EndPageSetup\n(3) show\n%%Trailer\nto Body\n%%Pages: 3\n"));
}

// Several documents of a job are one job to the printer.
TEST(SheetWriter, LeavesTheBodysMediumBehind) {
  EXPECT_THAT(written(order(kTwoSided + covers("2", "5")), document(3)),
              HasSubstr("%%Trailer\nto Body\nend\n%%Pages: "));
  EXPECT_THAT(written(order(kTwoSided + covers("1", "5")), document(3)),
              HasSubstr("%%Trailer\nend\n%%Pages: "));
}

TEST(SheetWriter, KeepsLargePagesInFilesAndLosesNothing) {
  const std::string large = "\n" + std::string(3 * SheetWriter::kLargestInMemory, 'x');
  const std::string text = written(order(kTwoSided + covers("2", "13")), document(3, large));
  EXPECT_EQ(sidesOf(text), "L1 - 2 3");
  for (int number = 1; number <= 3; ++number)
    EXPECT_THAT(text.find("(" + std::to_string(number) + ") show" + large), Not(text.npos));
}

TEST(SheetWriter, BeginsEachOfSeveralSetsAnew) {
  const std::string text =
      written(order(kTwoSided + covers("1", "1") + Options{{"copies", "3"}, {"Collate", "true"}}),
              document(2));
  std::size_t found = 0;
  for (std::size_t place = 0; (place = text.find("again\nto Leather\n", place)) != text.npos;
       ++place)
    ++found;
  EXPECT_EQ(found, 3U);
}

TEST(SheetWriter, LeavesAJobWithoutPagesEmpty) {
  const std::string text = written(order(kTwoSided + covers("2", "5")), document(0));
  EXPECT_THAT(text, Not(HasSubstr("%%Page:")));
  EXPECT_THAT(text, HasSubstr("%%Pages: 0\n"));
}

TEST(SheetWriter, TakesLabelsFromPageComments) {
  const std::pair<const char*, const char*> kLabels[] = {{"%%Page: 1 1\n", "1"},
                                                         {"%%Page: (a b) 12\r\n", "(a b)"},
                                                         {"%%Page:iv\t4\n", "iv"},
                                                         {"%%Page: 7\n", "7"},
                                                         {"%%Page: x y\n", "x y"},
                                                         {"%%Page:\n", "?"},
                                                         {"%%Page: (filler) 3", "(filler)"}};
  for (const auto& [comment, label] : kLabels)
    EXPECT_EQ(pageLabel(comment), label);
}

}  // namespace
}  // namespace publishing
