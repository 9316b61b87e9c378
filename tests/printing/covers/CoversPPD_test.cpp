// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoversPPD.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"
#include "tests/printing/covers/SampleDrivers.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kPostScriptPPD =
    test::ppdText("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n" + kPostScriptMedia);

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  EXPECT_NE(text.find(from), std::string::npos) << from;
  for (std::size_t place = text.find(from); place != std::string::npos;
       place = text.find(from, place + to.size()))
    text.replace(place, from.size(), to);
  return text;
}

// PPDs of all kinds that can have covers, in all sorts of spelling.
std::vector<std::string> samples() {
  const std::string odd =
      "*PPD-Adobe:\t\"4.3\"\n\n*%comment \"with a quote\n*% : and \" another\n"
      "*cupsFilter:   \"application/vnd.cups-postscript   0  -\"   \n"
      "*cupsFilter2: \"application/vnd.cups-postscript application/postscript 0 foo\"\n";
  return {contentsOfFile(kSamplePPD),
          kPostScriptPPD,
          ghostscriptPPD("pxlmono"),
          test::ppdText(kFoomaticFilters + "*FoomaticRIPCommandLine: \"cat&&\n%A%B%Z\"\n*End\n" +
                        kPostScriptMedia),
          replaced(odd,
                   "*cupsFilter2: \"application/vnd.cups-postscript application/postscript 0 "
                   "foo\"\n",
                   "") +
              kPostScriptMedia + "*OpenGroup: Last/<E4>\xE4\t\n \n\t*odd: \"two\nlines\"\n*% end",
          test::ppdText(kPostScriptMedia)};
}

TEST(CoversPPD, TheWayBackRestoresEveryByte) {
  for (const std::string& sample : samples()) {
    for (const char* end : {"\n", "\r\n", "\r"}) {
      const std::string ppd = replaced(sample, "\n", end);
      const std::string enabled = withCovers(ppd);
      EXPECT_NE(enabled, ppd);
      EXPECT_TRUE(coversStateOf(enabled).enabled);
      EXPECT_EQ(withoutCovers(enabled), ppd);
    }
  }
}

TEST(CoversPPD, AddedLinesEndAsTheOthersDo) {
  EXPECT_EQ(withCovers(replaced(kPostScriptPPD, "\n", "\r\n")),
            replaced(withCovers(kPostScriptPPD), "\n", "\r\n"));
  EXPECT_EQ(withCovers(replaced(kPostScriptPPD, "\n", "\r")),
            replaced(withCovers(kPostScriptPPD), "\n", "\r"));
}

TEST(CoversPPD, TheWayBackKeepsWhatOthersChangedMeanwhile) {
  const struct {
    const char* what;
    std::function<std::string(const std::string&)> change;
  } table[] = {
      {"a default",
       [](const auto& ppd) {
         return replaced(ppd, "DefaultInputSlot: Tray1", "DefaultInputSlot: Tray2");
       }},
      {"a new line in front",
       [](const auto& ppd) {
         return replaced(ppd, "*OpenUI *InputSlot", "*New: 1\n*OpenUI *InputSlot");
       }},
      {"a new line behind", [](const auto& ppd) { return ppd + "*cupsProtocol: None\n"; }},
      {"a line taken out",
       [](const auto& ppd) { return replaced(ppd, "*InputSlot Auto/Any Tray: \"\"\n", ""); }},
      {"all line ends", [](const auto& ppd) { return replaced(ppd, "\n", "\r\n"); }},
  };
  for (const auto& row : table) {
    const std::string changed = row.change(withCovers(kPostScriptPPD));
    EXPECT_EQ(withoutCovers(changed), row.change(kPostScriptPPD)) << row.what;
  }
}

// The print server writes the queue's defaults into its PPD.
TEST(CoversPPD, TheWayBackTakesChangedLinesOfOursAsWell) {
  const std::string enabled = withCovers(kPostScriptPPD);
  EXPECT_EQ(withoutCovers(replaced(enabled, "*DefaultCoverMediaType: PrnDef",
                                   "*DefaultCoverMediaType: Tray2")),
            kPostScriptPPD);
}

TEST(CoversPPD, BothWaysCanBeGoneTwice) {
  const std::string enabled = withCovers(kPostScriptPPD);
  EXPECT_EQ(withCovers(enabled), enabled);
  EXPECT_EQ(withoutCovers(kPostScriptPPD), kPostScriptPPD);
  EXPECT_EQ(withCovers(withoutCovers(enabled)), enabled);
}

TEST(CoversPPD, TheDriversFilterLinesAreSetAside) {
  const std::string enabled = withCovers(kPostScriptPPD);
  EXPECT_THAT(
      enabled,
      AllOf(HasSubstr("*%Publishing *cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"),
            Not(HasSubstr("\n*cupsFilter: \"application/vnd.cups-postscript"))));
}

TEST(CoversPPD, ALineThatLeadsJobsAroundTheFilterIsNoticedAndMended) {
  const std::string line = "*cupsFilter: \"application/pdf 0 other\"\n";
  const std::string bypassed = withCovers(kPostScriptPPD) + line;
  EXPECT_EQ(coversStateOf(bypassed).bypass, line);
  // The other program's line is now a reason of its own against covers.
  EXPECT_EQ(errorOf([&] { withCovers(bypassed); }).kind(), PrintError::Kind::Refused);

  const std::string direct = "*cupsFilter: \"application/postscript 0 -\"\n";
  const std::string mended = withCovers(withCovers(kPostScriptPPD) + direct);
  EXPECT_EQ(coversStateOf(mended).bypass, "");
  EXPECT_EQ(withoutCovers(mended), kPostScriptPPD + direct);
}

TEST(CoversPPD, TellsWhatAPPDHasAndCanHave) {
  const CoversState off = coversStateOf(kPostScriptPPD);
  EXPECT_FALSE(off.enabled);
  EXPECT_EQ(off.verdict.kind, PrinterKind::PostScript);
  EXPECT_EQ(off.verdict.reason, "");
  const CoversState on = coversStateOf(withCovers(kPostScriptPPD));
  EXPECT_TRUE(on.enabled);
  EXPECT_EQ(on.bypass, "");
  EXPECT_EQ(on.verdict.kind, PrinterKind::PostScript);
}

TEST(CoversPPD, RefusesWithTheReasonOfThePrinter) {
  const std::string ppd =
      test::ppdText("*cupsFilter: \"application/vnd.cups-raster 0 hpcups\"\n" + kPostScriptMedia);
  const PrintError error = errorOf([&] { withCovers(ppd); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  EXPECT_EQ(error.what(), coversStateOf(ppd).verdict.reason);
}

TEST(CoversPPD, RefusesPPDsThatAddedLinesWouldBreak) {
  const std::string cutOff = kPostScriptPPD.substr(0, kPostScriptPPD.size() - 1);
  const std::string twoLines =
      test::ppdText("*cupsFilter: \"application/vnd.cups-postscript\n0 -\"\n" + kPostScriptMedia);
  for (const std::string& ppd : {cutOff, twoLines})
    EXPECT_EQ(errorOf([&] { withCovers(ppd); }).kind(), PrintError::Kind::Refused) << ppd;
}

TEST(CoversPPD, AHalfOfItsLinesIsReportedAndNotTouched) {
  const std::string enabled = withCovers(kPostScriptPPD);
  const std::string begin = "*% Begin of the lines of publishing printer enable\n";
  const std::string end = "*% End of the lines of publishing printer enable\n";
  for (const std::string& ppd :
       {replaced(enabled, begin, ""), replaced(enabled, end, ""), replaced(enabled, end, begin)}) {
    EXPECT_EQ(errorOf([&] { withoutCovers(ppd); }).kind(), PrintError::Kind::Trouble);
    EXPECT_EQ(errorOf([&] { withCovers(ppd); }).kind(), PrintError::Kind::Trouble);
  }
}

TEST(CoversPPD, LinesThatWereOnlySetAsideComeBack) {
  const std::string aside = replaced(kPostScriptPPD, "*cupsFilter", "*%Publishing *cupsFilter");
  EXPECT_FALSE(coversStateOf(aside).enabled);
  EXPECT_EQ(withoutCovers(aside), kPostScriptPPD);
  EXPECT_EQ(withCovers(aside), withCovers(kPostScriptPPD));
}

}  // namespace
}  // namespace publishing
