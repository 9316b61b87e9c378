// SPDX-License-Identifier: Apache-2.0
// The filter on real documents, with CUPS's own filters and Ghostscript.
#include <ostream>

#include <gmock/gmock.h>

#include "tests/programs/filter/FilterRun.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kReport = TEST_DATA "/report.pdf";
const std::string kTwoSided = "sides=two-sided-long-edge ";
const std::string kBothCovers =
    "VtCoverModeState=On VtCoverModeValue=5 VtCovermodeRadioButtonState=2 CoverMediaType=Coated ";
const std::string kInserts =
    "VtPageinsertState=On VtPageinsertValue=0 VtPageinsertNums=5,8, PageMediaType=Tray3 ";

// Without the sides that look like the second one, which is blank.
std::vector<std::string> withoutBlanks(std::vector<std::string> pictures) {
  const std::string blank = pictures.at(1);
  std::erase(pictures, blank);
  return pictures;
}

class Publishingtops : public ::testing::Test {
 protected:
  // What the filter prints; it must do so without complaint.
  std::vector<std::string> sides(const FilterRun& run) {
    outcome_ = runFilter(run, output_);
    EXPECT_EQ(outcome_.status, 0) << outcome_.errors;
    EXPECT_THAT(outcome_.errors, Not(HasSubstr("ERROR")));
    return printedSides(output_);
  }

  // A document of as many pages, with page comments.
  std::string postScript(int pages, const std::string& inEachPage = {}) {
    std::string text =
        "%!PS-Adobe-3.0\n%%Pages: " + std::to_string(pages) + "\n%%EndComments\n%%EndProlog\n";
    for (int page = 1; page <= pages; ++page) {
      const std::string number = std::to_string(page);
      text += "%%Page: " + number + " " + number + "\n" + inEachPage +
              "/Helvetica 12 selectfont 72 72 moveto (Page " + number + " of) show\nshowpage\n";
    }
    return folder_.file("in.ps", text + "%%Trailer\n%%EOF\n");
  }

  TemporaryFolder folder_;
  std::string output_ = folder_ / "out.ps";
  Outcome outcome_;
};

TEST_F(Publishingtops, PutsCoversAndInsertsOnTheirMedia) {
  const std::vector<std::string> expected = {
      "Coated 1", "Coated -", "Plain 2", "Plain 3", "Plain 4",  "Plain -",
      "2 -",      "2 -",      "Plain 5", "Plain 6", "Plain 7",  "Plain -",
      "2 -",      "2 -",      "Plain 8", "Plain 9", "Coated -", "Coated 10"};
  for (const char* renderer : {"gs", "pdftops"}) {
    EXPECT_THAT(sides({kReport, kTwoSided + kBothCovers + kInserts + "page-ranges=1-10 " +
                                    "pdftops-renderer=" + renderer}),
                ElementsAreArray(expected))
        << renderer;
    EXPECT_THAT(outcome_.errors, HasSubstr("PAGE: total 18\n"));
  }
}

TEST_F(Publishingtops, TakesPostScriptWithAndWithoutPageComments) {
  const std::vector<std::string> expected = {"Coated 1", "Coated -", "Plain 2",
                                             "Plain 3",  "Coated -", "Coated 4"};
  const std::string withComments = postScript(4);
  const std::string without = folder_.file(
      "without.ps",
      "%!\n1 1 4{/Helvetica 12 selectfont 72 72 moveto (Page ) show 3 string cvs show ( of) show "
      "showpage}for\n");
  for (const std::string& document : {withComments, without}) {
    for (const bool throughPipe : {false, true}) {
      EXPECT_THAT(sides({.document = document,
                         .options = kTwoSided + kBothCovers,
                         .contentType = "application/postscript",
                         .throughPipe = throughPipe}),
                  ElementsAreArray(expected))
          << document;
    }
  }
}

TEST_F(Publishingtops, KeepsSheetsWholeWhosePagesSetTheirSize) {
  const std::string document = postScript(4, "<</PageSize[420 595]>>setpagedevice\n");
  EXPECT_THAT(sides({.document = document,
                     .options = kTwoSided + kBothCovers,
                     .contentType = "application/postscript"}),
              ElementsAre("Coated 1", "Coated -", "Plain 2", "Plain 3", "Coated -", "Coated 4"));
  EXPECT_THAT(outcome_.errors, HasSubstr("which change the page device"));
}

TEST_F(Publishingtops, PrintsOnePageOnBothSidesOfItsCover) {
  EXPECT_THAT(sides({kReport, kTwoSided + kBothCovers + "page-ranges=1"}),
              ElementsAre("Coated 1", "Coated -", "Coated -", "Coated -"));
  EXPECT_THAT(contentsOfFile(output_), HasSubstr("*Duplex DuplexNoTumble\n"));
}

TEST_F(Publishingtops, MakesCollatedCopiesItself) {
  const std::vector<std::string> set = {"1 1", "1 -", "Plain 2", "Plain -", "1 -", "1 3"};
  std::vector<std::string> expected;
  for (int copy = 0; copy < 3; ++copy)
    expected.insert(expected.end(), set.begin(), set.end());
  for (const char* renderer : {"gs", "pdftops"}) {
    EXPECT_THAT(
        sides({kReport,
               kTwoSided + kBothCovers + "CoverMediaType=Tray2 page-ranges=1-3 collate=true " +
                   "pdftops-renderer=" + renderer,
               "3"}),
        ElementsAreArray(expected))
        << renderer;
    EXPECT_THAT(contentsOfFile(output_), Not(HasSubstr("*NumCopies")));
    EXPECT_THAT(outcome_.errors, HasSubstr("PAGE: total 18\n"));
  }
}

TEST_F(Publishingtops, LeavesUncollatedCopiesToThePrinter) {
  EXPECT_THAT(sides({kReport, kTwoSided + kBothCovers + "page-ranges=1-3 collate=false", "2"}),
              ElementsAre("Coated 1", "Coated -", "Plain 2", "Plain -", "Coated -", "Coated 3"));
  EXPECT_THAT(contentsOfFile(output_), HasSubstr("*NumCopies 2"));
  EXPECT_THAT(outcome_.errors, HasSubstr("PAGE: total 12\n"));
}

TEST_F(Publishingtops, ChangesNoPicture) {
  for (const std::string& more : {std::string(), std::string("pdftops-renderer=pdftops"),
                                  std::string("page-label=secret orientation-requested=4")}) {
    const FilterRun plain{kReport, kTwoSided + more};
    const FilterRun withSheets{kReport, kTwoSided + kBothCovers + kInserts + more};
    ASSERT_EQ(runFilter(plain, output_).status, 0);
    const std::vector<std::string> expected = pictures(output_);
    ASSERT_EQ(runFilter(withSheets, output_).status, 0);
    EXPECT_EQ(withoutBlanks(pictures(output_)), expected) << more;
  }
}

TEST_F(Publishingtops, KeepsADocumentsOwnGraphicsState) {
  std::string text = contentsOfFile(postScript(4, "gsave\n"));
  text.replace(
      text.find("%%EndProlog\n"), 12,
      "%%EndProlog\n%%BeginSetup\n36 36 translate 0.9 dup scale 0.5 setgray\n%%EndSetup\n");
  for (std::size_t place = 0; (place = text.find("showpage\n", place)) != text.npos; place += 18)
    text.replace(place, 9, "showpage grestore\n");
  const std::string document = folder_.file("state.ps", text);
  FilterRun run{
      .document = document, .options = kTwoSided, .contentType = "application/postscript"};
  ASSERT_EQ(runFilter(run, output_).status, 0);
  const std::vector<std::string> expected = pictures(output_);
  run.options += kBothCovers + kInserts;
  ASSERT_EQ(runFilter(run, output_).status, 0);
  EXPECT_EQ(withoutBlanks(pictures(output_)), expected);
}

struct PlainCase {
  const char* name;
  std::string options;
  std::string contentType;
  std::vector<std::string> programs;
};

void PrintTo(const PlainCase& tried, std::ostream* out) {
  *out << tried.options;
}

const PlainCase kPlainCases[] = {
    {"PDF", "", "application/pdf", {"pdftopdf", "pdftops"}},
    {"PDFByPoppler",
     "pdftops-renderer=pdftops sides=two-sided-long-edge",
     "application/pdf",
     {"pdftopdf", "pdftops"}},
    {"SwitchedOff",
     "VtCoverModeState=Off VtCoverModeValue=5 CoverMediaType=Tray2 number-up=2",
     "application/pdf",
     {"pdftopdf", "pdftops"}},
    {"FinishedPDF", "", "application/vnd.cups-pdf", {"pdftops"}},
    {"FinishedPicture", "", "image/jpeg", {"pdftops"}},
    {"PostScript",
     "sides=two-sided-long-edge page-ranges=2-4",
     "application/postscript",
     {"pstops"}},
    {"Banner",
     "VtCoverModeState=On VtCoverModeValue=5 VtCovermodeRadioButtonState=2",
     "application/vnd.cups-pdf-banner",
     {"pdftopdf", "pdftops"}},
};

class PlainJob : public Publishingtops, public ::testing::WithParamInterface<PlainCase> {};

TEST_P(PlainJob, ComesOutAsFromCupsByteByByte) {
  const PlainCase& tried = GetParam();
  const bool isPostScript = tried.contentType == "application/postscript";
  for (const char* copies : {"2"}) {
    FilterRun run{.document = isPostScript ? postScript(5) : kReport,
                  .options = tried.options,
                  .copies = copies,
                  .contentType = tried.contentType};
    ASSERT_EQ(runCupsFilters(run, tried.programs, folder_ / "expected.ps").status, 0);
    for (const bool throughPipe : {false, true}) {
      run.throughPipe = throughPipe;
      ASSERT_EQ(runFilter(run, output_).status, 0);
      EXPECT_TRUE(withoutDate(output_) == withoutDate(folder_ / "expected.ps"));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Publishingtops, PlainJob, ::testing::ValuesIn(kPlainCases),
                         [](const auto& tried) { return std::string(tried.param.name); });

TEST_F(Publishingtops, PassesOnWhatHasItsSheetsAlready) {
  ASSERT_EQ(runFilter({kReport, kTwoSided + kBothCovers + "page-ranges=1-4"}, output_).status, 0);
  for (const bool throughPipe : {false, true}) {
    ASSERT_EQ(runFilter({.document = output_,
                         .options = kTwoSided + kBothCovers,
                         .copies = "2",
                         .contentType = "application/postscript",
                         .throughPipe = throughPipe},
                        folder_ / "again.ps")
                  .status,
              0);
    EXPECT_EQ(contentsOfFile(folder_ / "again.ps"), contentsOfFile(output_));
  }
}

TEST_F(Publishingtops, LeavesTheCoversToNoOtherProgram) {
  ASSERT_EQ(runFilter({kReport, kTwoSided + kBothCovers + kInserts}, output_).status, 0);
  EXPECT_THAT(contentsOfFile(output_),
              AllOf(HasSubstr("*CoverMediaType PrnDef\n"), HasSubstr("*PageMediaType PrnDef\n"),
                    Not(HasSubstr("*CoverMediaType Coated"))));
}

// What CUPS's filters add would be taken for the last page.
TEST_F(Publishingtops, MakesNoPageOfWhatFillsUpASheet) {
  const std::string ppd =
      folder_.file("even.ppd", contentsOfFile(FilterRun().ppd) + "*cupsEvenDuplex: True\n");
  const std::vector<std::string> expected = {"Coated 1", "Coated -", "Plain 2",  "Plain 3",
                                             "Plain 4",  "Plain -",  "Coated -", "Coated 5"};
  EXPECT_THAT(sides({.document = kReport,
                     .options = kTwoSided + kBothCovers + "page-ranges=1-5",
                     .ppd = ppd}),
              ElementsAreArray(expected));
  EXPECT_THAT(sides({.document = postScript(5),
                     .options = kTwoSided + kBothCovers,
                     .contentType = "application/postscript",
                     .ppd = ppd}),
              ElementsAreArray(expected));
}

TEST_F(Publishingtops, ReadsDataAndLongLinesAsWhatTheyAre) {
  const std::string data = "currentfile 12 string readstring\n%%Page: 3 3\npop pop\n(" +
                           std::string(300000, 'x') + ")pop\n";
  const std::string document = postScript(3, "%%BeginData: 45 Binary Bytes\n" + data);
  EXPECT_THAT(sides({.document = document,
                     .options = kTwoSided + kBothCovers,
                     .contentType = "application/postscript"}),
              ElementsAre("Coated 1", "Coated -", "Plain 2", "Plain -", "Coated -", "Coated 3"));
}

TEST_F(Publishingtops, KeepsSheetsWholeOfPagesOfDifferentSizes) {
  const std::string document = folder_ / "mixed.pdf";
  const std::string page =
      " /Helvetica 12 selectfont 72 72 moveto (Page ) show show ( of) show showpage ";
  ASSERT_EQ(runProgram({"/bin/bash", "-c",
                        "gs -q -sDEVICE=pdfwrite -o " + document + " -c '(1)" + page +
                            "<</PageSize[842 1191]>>setpagedevice (2)" + page +
                            "<</PageSize[420 595]>>setpagedevice (3)" + page +
                            "<</PageSize[842 595]>>setpagedevice (4)" + page + "'"})
                .status,
            0);
  for (const char* renderer : {"gs", "pdftops"}) {
    EXPECT_THAT(sides({document, kTwoSided + kBothCovers + "pdftops-renderer=" + renderer}),
                ElementsAre("Coated 1", "Coated -", "Plain 2", "Plain 3", "Coated -", "Coated 4"));
    EXPECT_THAT(runProgram({"/bin/bash", "-c",
                            "gs -q -dNOPAUSE -dBATCH -sDEVICE=pdfwrite -o - " + output_ +
                                " | pdfinfo - | grep 'Page size'"})
                    .output,
                HasSubstr("595 x 842"));
  }
}

TEST_F(Publishingtops, TakesOptionsInAnyCase) {
  EXPECT_THAT(sides({kReport,
                     "SIDES=two-sided-long-edge vtcovermodestate=On VTCOVERMODEVALUE=1 "
                     "VtCovermodeRadioButtonState=1 covermediatype=Tray2 page-ranges=1-2"}),
              ElementsAre("1 1", "1 -", "Plain 2", "Plain -"));
  EXPECT_THAT(contentsOfFile(output_), Not(HasSubstr("*CoverMediaType Tray2")));
}

TEST_F(Publishingtops, PrintsOnCustomPageSizes) {
  const std::string ppd = folder_.file(
      "custom.ppd",
      contentsOfFile(FilterRun().ppd) +
          "*CustomPageSize True: \"pop pop pop <</PageSize [5 -2 roll]/ImagingBBox null>>"
          "setpagedevice\"\n*ParamCustomPageSize Width: 1 points 36 1000\n"
          "*ParamCustomPageSize Height: 2 points 36 1000\n"
          "*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
          "*ParamCustomPageSize HeightOffset: 4 points 0 0\n"
          "*ParamCustomPageSize Orientation: 5 int 0 3\n");
  for (const char* renderer : {"gs", "pdftops"}) {
    EXPECT_THAT(
        sides({.document = kReport,
               .options = kTwoSided + kBothCovers + "PageSize=Custom.400x600 page-ranges=1-3 " +
                          "pdftops-renderer=" + renderer,
               .ppd = ppd}),
        ElementsAre("Coated 1", "Coated -", "Plain 2", "Plain -", "Coated -", "Coated 3"));
  }
}

TEST_F(Publishingtops, SaysWhatAJobDoesNotGet) {
  sides({kReport, kTwoSided + kBothCovers + "number-up=2"});
  EXPECT_THAT(outcome_.errors, HasSubstr("WARNING: Covers and inserts are left out"));
  EXPECT_THAT(contentsOfFile(output_),
              AllOf(Not(HasSubstr("PublishingMedia")), Not(HasSubstr("*CoverMediaType Coated"))));
  runFilter(
      {kReport, kTwoSided + kBothCovers + kInserts + "VtPageinsertNums=1,30, page-ranges=1-4"},
      output_);
  EXPECT_THAT(outcome_.errors, HasSubstr("WARNING: "));
}

}  // namespace
}  // namespace publishing
