// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/PrinterKind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/covers/SampleDrivers.h"

namespace publishing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;

using Kind = PrinterKind;

PrinterVerdict verdictIn(const std::string& ppd) {
  const auto statements = statementsOf(ppd);
  return verdictOn(statements, mediaOf(statements));
}

TEST(PrinterKind, PrintersThatTakePostScriptCanHaveCovers) {
  for (const std::string& filters :
       {std::string(), std::string("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"),
        std::string("*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"
                    "*cupsFilter: \"application/vnd.cups-command 0 commandtops\"\n")}) {
    const PrinterVerdict verdict = verdictIn(filters + kPostScriptMedia);
    EXPECT_EQ(verdict.kind, Kind::PostScript) << filters;
    EXPECT_EQ(verdict.reason, "");
    EXPECT_EQ(verdict.program, "-");
    EXPECT_TRUE(verdict.types);
    EXPECT_THAT(verdict.codes, IsEmpty());
  }
}

TEST(PrinterKind, PostScriptPrintersByWayOfFoomaticCanHaveCovers) {
  for (const char* command :
       {"", "*FoomaticRIPCommandLine: \"cat%A%B%Z\"\n",
        "*FoomaticRIPCommandLine: \"printf &quot;%%!PS\\n%A&quot;%%%%; cat;\"\n"}) {
    const PrinterVerdict verdict = verdictIn(kFoomaticFilters + command + kPostScriptMedia);
    EXPECT_EQ(verdict.kind, Kind::FoomaticPostScript) << command;
    EXPECT_EQ(verdict.reason, "");
    EXPECT_EQ(verdict.program, "foomatic-rip");
    EXPECT_TRUE(verdict.types);
    EXPECT_THAT(verdict.codes, IsEmpty());
  }
}

TEST(PrinterKind, DevicesOfGhostscriptThatSwitchTraysCanHaveCovers) {
  for (const char* device : {"ljet2p", "ljet3", "ljet3d", "ljet4", "ljet4d", "laserjet", "ljetplus",
                             "pxlmono", "pxlcolor", "pcl3"}) {
    const PrinterVerdict verdict = verdictIn(ghostscriptPPD(device));
    EXPECT_EQ(verdict.kind, Kind::FoomaticGhostscript) << device;
    EXPECT_EQ(verdict.reason, "");
    EXPECT_EQ(verdict.program, "foomatic-rip");
    EXPECT_FALSE(verdict.types);
    EXPECT_THAT(verdict.codes,
                ElementsAre(Pair("InputSlot.Upper", "<</MediaPosition 1>>setpagedevice"),
                            Pair("InputSlot.Lower", "<</MediaPosition 5>>setpagedevice"),
                            Pair("Release.InputSlot", "<</MediaPosition 1>>setpagedevice"),
                            Pair("Release.MediaType", "")));
  }
}

TEST(PrinterKind, DevicesThatPrintOnBothSidesByThemselvesAreToldToPrintOnOne) {
  const std::string duplex =
      "*OpenUI *Duplex/Duplex: PickOne\n*FoomaticRIPOption Duplex: enum CmdLine A\n"
      "*DefaultDuplex: None\n"
      "*Duplex DuplexNoTumble/On: \"%% FoomaticRIPOptionSetting: Duplex=DuplexNoTumble\"\n"
      "*FoomaticRIPOptionSetting Duplex=DuplexNoTumble: \" -dDuplex\"\n"
      "*Duplex None/Off: \"%% FoomaticRIPOptionSetting: Duplex=None\"\n"
      "*FoomaticRIPOptionSetting Duplex=None: \"\"\n*CloseUI: *Duplex\n";
  const auto oneSided = Pair("Duplex.None", "<</Duplex false>>setpagedevice");
  for (const char* device : {"ljet3d", "ljet4d"}) {
    EXPECT_THAT(verdictIn(ghostscriptPPD(device) + duplex).codes, Contains(oneSided)) << device;
    EXPECT_THAT(verdictIn(ghostscriptPPD(device)).codes, Not(Contains(oneSided))) << device;
  }
  EXPECT_THAT(verdictIn(ghostscriptPPD("ljet4") + duplex).codes, Not(Contains(oneSided)));
}

TEST(PrinterKind, AllOtherDriversAreRefusedWithTheirReason) {
  const struct {
    const char* what;
    std::string ppd;
    Kind kind;
    const char* reason;
  } table[] = {
      {"PDF", "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n" + kPostScriptMedia, Kind::PDF,
       "PDF"},
      {"driverless",
       "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 10 -\"\n"
       "*cupsFilter2: \"image/urf image/urf 0 -\"\n" +
           kPostScriptMedia,
       Kind::Driverless, "without a driver"},
      {"HP raster",
       "*cupsFilter: \"application/vnd.cups-raster 50 rastertohp\"\n" + kPostScriptMedia,
       Kind::PageRaster, "rastertohp"},
      {"hpcups", "*cupsFilter: \"application/vnd.cups-raster 0 hpcups\"\n" + kPostScriptMedia,
       Kind::OneMedium, "hpcups"},
      {"a path", "*cupsFilter: \"application/vnd.cups-postscript 0 /tmp/x\"\n" + kPostScriptMedia,
       Kind::Unknown, "/tmp/x"},
      {"an unknown filter",
       "*cupsFilter: \"application/vnd.cups-postscript 0 hpps\"\n" + kPostScriptMedia,
       Kind::Unknown, "hpps"},
      {"an unknown filter beside PostScript",
       "*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n*cupsFilter: \"image/jpeg 0 "
       "mine\"\n" +
           kPostScriptMedia,
       Kind::Unknown, "filter"},
      {"a filter before", "*cupsPreFilter: \"application/pdf 0 mine\"\n" + kPostScriptMedia,
       Kind::Unknown, "mine"},
      {"the second form",
       "*cupsFilter2: \"application/vnd.cups-postscript a/b 0 mine\"\n" + kPostScriptMedia,
       Kind::Unknown, "mine"},
      {"a line cut off", "*cupsFilter: \"application/vnd.cups-postscript\"\n" + kPostScriptMedia,
       Kind::Unknown, "filter"},
      {"pictures only", "*cupsFilter: \"image/tiff 0 -\"\n" + kPostScriptMedia, Kind::Unknown,
       "image/tiff"},
      {"another device", ghostscriptPPD("cljet5"), Kind::Device, "cljet5"},
      {"a device among others",
       ghostscriptPPD("ljet4") + "*FoomaticRIPOptionSetting Mode=1: \"-sDEVICE=lj5gray\"\n",
       Kind::Device, "lj5gray"},
      {"no device", ghostscriptPPD("ljet4", "gs -q -dNOMEDIAATTRS"), Kind::Device, "(unnamed)"},
      {"ijs", ghostscriptPPD("ijs"), Kind::OneMedium, "ijs"},
      {"ijs by another program", ghostscriptPPD("ijs", "wrap gs -sDEVICE=ijs"), Kind::OneMedium,
       "ijs"},
      {"a program", ghostscriptPPD("ljet4", "gs -sDEVICE=ljet4 | tunnel"), Kind::Unknown, "tunnel"},
      {"its media attributes", ghostscriptPPD("pxlmono", "gs -sDEVICE=pxlmono%A"),
       Kind::FoomaticGhostscript, "-dNOMEDIAATTRS"},
  };
  for (const auto& row : table) {
    const PrinterVerdict verdict = verdictIn(row.ppd);
    EXPECT_EQ(verdict.kind, row.kind) << row.what << ": " << nameOf(verdict.kind);
    EXPECT_THAT(verdict.reason, HasSubstr(row.reason)) << row.what;
  }
}

TEST(PrinterKind, TheTrayMustBeChosenPageByPage) {
  const std::string jcl =
      "*JCLOpenUI *InputSlot: PickOne\n*InputSlot A: \"@PJL SET TRAY=1<0A>\"\n"
      "*InputSlot B: \"@PJL SET TRAY=2<0A>\"\n*JCLCloseUI: *InputSlot\n";
  const std::string commandLine =
      kFoomaticFilters + "*FoomaticRIPCommandLine: \"cat%A\"\n" + kPostScriptMedia;
  for (const std::string& ppd :
       {jcl, commandLine + "*FoomaticRIPOption InputSlot: enum CmdLine A\n",
        ghostscriptPPD("ljet4") + "*FoomaticRIPOption InputSlot: enum JCL A\n",
        ghostscriptPPD("ljet4") + "*FoomaticRIPOption InputSlot: enum Composite A\n"}) {
    EXPECT_THAT(verdictIn(ppd).reason, HasSubstr("before the job begins")) << ppd;
  }
}

TEST(PrinterKind, TypesThatAreChosenBeforeTheJobAreNotOffered) {
  const std::string types =
      "*JCLOpenUI *MediaType: PickOne\n*MediaType A: \"a\"\n*MediaType B: \"b\"\n"
      "*JCLCloseUI: *MediaType\n";
  EXPECT_FALSE(verdictIn(types + kPostScriptTrays).types);
  EXPECT_EQ(verdictIn(types + kPostScriptTrays).reason, "");
  EXPECT_FALSE(verdictIn(kPostScriptMedia + "*FoomaticRIPOption MediaType: enum JCL A\n").types);
}

TEST(PrinterKind, ThereMustBeSomethingToChoose) {
  const std::string one =
      "*OpenUI *InputSlot: PickOne\n*InputSlot A: \"a\"\n*CloseUI: *InputSlot\n";
  const std::string same = test::optionLines("InputSlot", {"A", "B"});
  for (const std::string& ppd :
       {std::string("*PPD-Adobe: \"4.3\"\n"), one, same, kFoomaticFilters + one,
        "*cupsFilter: \"application/vnd.cups-raster 0 hpcups\"\n" + one,
        ghostscriptPPD("ljet4", kGhostscript, "1", "1")}) {
    EXPECT_THAT(verdictIn(ppd).reason, HasSubstr("no choice")) << ppd;
  }
  EXPECT_EQ(verdictIn(kPostScriptTypes).reason, "");
  EXPECT_EQ(verdictIn(kPostScriptTrays).reason, "");
}

TEST(PrinterKind, ATrayThatTheDriverChoosesInAnUnknownWayIsNamed) {
  EXPECT_THAT(verdictIn(ghostscriptPPD("ljet4", kGhostscript, "1", "5 -dCasset=1")).reason,
              HasSubstr("Lower"));
}

}  // namespace
}  // namespace publishing
