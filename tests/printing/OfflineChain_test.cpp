// SPDX-License-Identifier: Apache-2.0
#include "printing/OfflineChain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingKeys.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class OfflineChain : public ::testing::Test {
 protected:
  void print(const std::string& contents, const std::string& output) {
    printToFile(printer_, ticket_, Document(folder_.file("-o in.pdf", contents)), "Title", output);
  }
  [[nodiscard]] int filesInFolder() const {
    return static_cast<int>(std::distance(std::filesystem::directory_iterator(folder_.path()), {}));
  }

  TemporaryFolder folder_;
  Printer printer_ = Printer::openPPD(kSamplePPD);
  JobTicket ticket_ = printer_.newTicket();
};

TEST_F(OfflineChain, MakesPostScriptWithTheChoices) {
  ticket_.setValue(cCoverMediaType, "Tray2");
  ticket_.setSides(Sides::TwoSidedLongEdge);
  for (const std::string& contents : {kSamplePostScript, samplePDF(2)}) {
    const std::string output = folder_ / "out.ps";
    print(contents, output);
    EXPECT_THAT(contentsOfFile(output),
                AllOf(StartsWith("%!PS"), HasSubstr("%%BeginFeature: *CoverMediaType Tray2"),
                      HasSubstr("%%BeginFeature: *Duplex DuplexNoTumble")));
    EXPECT_EQ(filesInFolder(), 2);
  }
}

// Quoting must neither add options nor run anything.
TEST_F(OfflineChain, ValuesStayOneOptionWhateverTheyHold) {
  for (const char* value : {"x InputSlot=Tray3", "\" InputSlot=Tray3 \"", "\\\" InputSlot=Tray3",
                            "' InputSlot=Tray3 '", "end\\"}) {
    ticket_.setValue("VtPageinsertNums", value);
    ticket_.setValue("VtUnspecified", "1");
    print(kSamplePostScript, folder_ / "out.ps");
    EXPECT_THAT(contentsOfFile(folder_ / "out.ps"), HasSubstr("%%BeginFeature: *InputSlot Tray1"))
        << value;
  }
}

TEST_F(OfflineChain, AFailureLeavesTheEarlierOutputAndTellsTheReason) {
  const std::string output = folder_.file("out.ps", "precious");
  const PrintError error = errorOf([&] { print("%PDF-1.4\nbroken", output); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("in.pdf"), HasSubstr("ERROR")));
  EXPECT_EQ(contentsOfFile(output), "precious");
  EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(OfflineChain, AFullDiskIsReported) {
  const PrintError error = errorOf([&] { print(samplePDF(3), "/dev/full"); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), AllOf(HasSubstr("/dev/full"), HasSubstr("No space left")));
}

TEST_F(OfflineChain, AFolderThatIsMissingOrInTheWayIsReported) {
  for (const std::string& output : {folder_ / "missing/out.ps", folder_.path()}) {
    const PrintError error = errorOf([&] { print(kSamplePostScript, output); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), HasSubstr(output));
  }
}

TEST_F(OfflineChain, RefusesTitlesAndOptionsBeforeAnythingRuns) {
  ticket_.setValue("VtPageinsertNums", "3\n5");
  EXPECT_EQ(errorOf([&] { print(kSamplePostScript, folder_ / "out.ps"); }).kind(),
            PrintError::Kind::Refused);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "out.ps"));
}

// The filters would run it with the user's rights.
TEST_F(OfflineChain, RunsNoProgramThatThePPDNames) {
  const std::string made = folder_ / "made";
  const std::string program = folder_.file("program", "#!/bin/sh\ntouch '" + made + "'\ncat\n");
  std::filesystem::permissions(program, std::filesystem::perms(0755));
  const std::string lines[] = {
      "*cupsFilter: \"application/vnd.cups-postscript 0 " + program + "\"\n",
      "*cupsFilter: \"application/vnd.cups-postscript 0 ../../../.." + program + "\"\n",
      "*cupsFilter2: \"application/vnd.cups-postscript application/postscript 0 " + program +
          "\"\n",
      "*cupsPreFilter: \"application/pdf 0 " + program + "\"\n",
      "*FoomaticRIPCommandLine: \"" + program + "\"\n",
  };
  for (const std::string& line : lines) {
    printer_ = Printer::openPPD(folder_.file("foreign.ppd", contentsOfFile(kSamplePPD) + line));
    const PrintError error = errorOf([&] { print(kSamplePostScript, folder_ / "out.ps"); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused) << line;
    EXPECT_THAT(error.what(), AllOf(HasSubstr("foreign.ppd"), HasSubstr(line.substr(1, 9))));
    EXPECT_FALSE(std::filesystem::exists(made)) << line;
  }
  printer_ = Printer::openPPD(folder_.file(
      "plain.ppd",
      contentsOfFile(kSamplePPD) + "*cupsFilter: \"application/vnd.cups-postscript 0 -\"\n"));
  print(kSamplePostScript, folder_ / "out.ps");
  EXPECT_THAT(contentsOfFile(folder_ / "out.ps"), StartsWith("%!PS"));
}

TEST_F(OfflineChain, CopiesArePrinted) {
  ticket_.setCopies(3);
  print(kSamplePostScript, folder_ / "out.ps");
  EXPECT_THAT(
      contentsOfFile(folder_ / "out.ps"),
      AllOf(HasSubstr("%%Page: 2 2\n"), HasSubstr("%%Page: 1 3\n"), HasSubstr("%%Page: 2 6\n")));
  ticket_.setSwitch("collate", false);
  print(kSamplePostScript, folder_ / "out.ps");
  EXPECT_THAT(contentsOfFile(folder_ / "out.ps"), HasSubstr("/#copies 3"));
}

}  // namespace
}  // namespace publishing
