// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoverLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"
#include "tests/printing/covers/SampleDrivers.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

std::string linesFor(const std::string& ppd, std::string_view lineEnd = "\n") {
  const auto statements = statementsOf(ppd);
  const PPDMedia media = mediaOf(statements);
  return coverLines(statements, media, verdictOn(statements, media), lineEnd);
}

TEST(CoverLines, AddBothOptionsAndTheFilter) {
  EXPECT_EQ(linesFor(kPostScriptTrays),
            "*OpenUI *CoverMediaType/Cover Paper: PickOne\n"
            "*OrderDependency: 900 AnySetup *CoverMediaType\n"
            "*DefaultCoverMediaType: PrnDef\n"
            "*CoverMediaType PrnDef/Printer Default: \"\"\n"
            "*CoverMediaType Auto/Any Tray: \"\"\n"
            "*CoverMediaType Tray1/Tray 1: \"\"\n"
            "*CoverMediaType Tray2/Tray 2: \"\"\n"
            "*CloseUI: *CoverMediaType\n"
            "*OpenUI *PageMediaType/Inserted Page Paper: PickOne\n"
            "*OrderDependency: 901 AnySetup *PageMediaType\n"
            "*DefaultPageMediaType: PrnDef\n"
            "*PageMediaType PrnDef/Printer Default: \"\"\n"
            "*PageMediaType Auto/Any Tray: \"\"\n"
            "*PageMediaType Tray1/Tray 1: \"\"\n"
            "*PageMediaType Tray2/Tray 2: \"\"\n"
            "*CloseUI: *PageMediaType\n"
            "*PublishingKind: \"postscript\"\n"
            "*cupsFilter: \"application/vnd.publishing-postscript 0 -\"\n"
            "*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n");
}

TEST(CoverLines, EndAsTheyAreToldTo) {
  std::string expected = linesFor(kPostScriptMedia);
  for (std::size_t place = expected.find('\n'); place != std::string::npos;
       place = expected.find('\n', place + 2))
    expected.replace(place, 1, "\r\n");
  EXPECT_EQ(linesFor(kPostScriptMedia, "\r\n"), expected);
}

TEST(CoverLines, AddOnlyTheOptionThatIsMissing) {
  const std::string own =
      "*OpenUI *PageMediaType/Own: PickOne\n*PageMediaType X: \"x\"\n"
      "*CloseUI: *PageMediaType\n";
  EXPECT_THAT(linesFor(kPostScriptMedia + own),
              AllOf(HasSubstr("*OpenUI *CoverMediaType"), Not(HasSubstr("*PageMediaType"))));
  EXPECT_EQ(linesFor(contentsOfFile(kSamplePPD)),
            "*PublishingKind: \"postscript\"\n"
            "*cupsFilter: \"application/vnd.publishing-postscript 0 -\"\n"
            "*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n");
}

TEST(CoverLines, KeepTheBytesOfTextsInAnyEncoding) {
  const std::string ppd =
      "*OpenUI *InputSlot: PickOne\n*InputSlot A/F\xE4<63>her: \"a\"\n*InputSlot B: \"b\"\n"
      "*CloseUI: *InputSlot\n";
  EXPECT_THAT(linesFor(ppd), AllOf(HasSubstr("*CoverMediaType A/F\xE4<63>her: \"\"\n"),
                                   HasSubstr("*CoverMediaType B: \"\"\n")));
}

TEST(CoverLines, RepeatTheTranslationsOfTheMedia) {
  const std::string ppd = kPostScriptMedia +
                          "*cupsLanguages: \"de zh_CN en x/y x.y\"\n"
                          "*de.InputSlot Tray1/Fach 1: \"\"\n"
                          "*de.MediaType Auto/Irgendein Papier: \"\"\n"
                          "*zh_CN.MediaType Coated/\xE6\xB6\x82: \"\"\n"
                          "*de.InputSlot Nowhere/Nirgends: \"\"\n"
                          "*de.Duplex Tray1/Nichts davon: \"\"\n";
  const std::string lines = linesFor(ppd);
  EXPECT_THAT(lines, AllOf(HasSubstr("*de.Translation CoverMediaType/Cover Paper: \"\"\n"),
                           HasSubstr("*zh_CN.CoverMediaType PrnDef/Printer Default: \"\"\n"),
                           HasSubstr("*de.CoverMediaType Tray1/Fach 1: \"\"\n"),
                           HasSubstr("*de.PageMediaType Tray1/Fach 1: \"\"\n"),
                           HasSubstr("*de.CoverMediaType Type.Auto/Irgendein Papier: \"\"\n"),
                           HasSubstr("*zh_CN.PageMediaType Coated/\xE6\xB6\x82: \"\"\n")));
  EXPECT_THAT(lines, AllOf(Not(HasSubstr("Nirgends")), Not(HasSubstr("Nichts")),
                           Not(HasSubstr("*en.")), Not(HasSubstr("*x"))));
}

TEST(CoverLines, SayHowTraysAreSwitchedWhereThePPDDoesNot) {
  EXPECT_THAT(linesFor(ghostscriptPPD("ljet4")),
              HasSubstr("*PublishingKind: \"foomatic-ghostscript\"\n"
                        "*PublishingCode InputSlot.Upper: \"<</MediaPosition 1>>setpagedevice\"\n"
                        "*PublishingCode InputSlot.Lower: \"<</MediaPosition 5>>setpagedevice\"\n"
                        "*PublishingCode Release.InputSlot: \"<</MediaPosition 1>>setpagedevice\"\n"
                        "*PublishingCode Release.MediaType: \"\"\n"
                        "*cupsFilter: \"application/vnd.publishing-postscript 0 foomatic-rip\"\n"
                        "*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n"));
}

TEST(CoverLines, LeavePrinterCommandsToADriverThatTakesThem) {
  const std::string own = "*cupsFilter: \"application/vnd.cups-command 33 commandtoown\"\n";
  EXPECT_THAT(linesFor(own + kPostScriptMedia), Not(HasSubstr("commandto")));
  const std::string second = "*cupsFilter2: \"application/vnd.cups-command a/b 33 commandtoown\"\n";
  EXPECT_THAT(linesFor(second + kPostScriptMedia), HasSubstr("commandtops"));
}

TEST(CoverLines, RefuseATrayWhoseCodeCouldNotBeFound) {
  std::string ppd = ghostscriptPPD("ljet4");
  const std::string longName(31, 'L');
  for (std::size_t place = ppd.find("Lower"); place != std::string::npos;
       place = ppd.find("Lower", place + longName.size()))
    ppd.replace(place, 5, longName);
  const PrintError error = errorOf([&] { linesFor(ppd); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
  EXPECT_THAT(error.what(), HasSubstr(longName));
}

}  // namespace
}  // namespace publishing
