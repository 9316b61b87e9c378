// SPDX-License-Identifier: Apache-2.0
// What the filter does when something around it goes wrong. CUPS's filters are shell scripts here.
#include <gmock/gmock.h>

#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kOptions =
    "VtCoverModeState=On VtCoverModeValue=13 VtCovermodeRadioButtonState=2 CoverMediaType=Tray2 "
    "sides=two-sided-long-edge";

class FilterFaults : public ::testing::Test {
 protected:
  FilterFaults() {
    for (const char* name : {"cups/filter", "temporary"})
      std::filesystem::create_directories(folder_ / name);
  }
  ~FilterFaults() override {
    // A file of the filter's that is left behind would be here.
    EXPECT_TRUE(std::filesystem::is_empty(folder_ / "temporary"));
  }

  void cupsFilter(const std::string& name, const std::string& script) {
    const std::string path = folder_.file("cups/filter/" + name, "#!/bin/bash\n" + script + "\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }

  // A document of as many pages, with so many bytes each.
  std::string document(int pages, std::size_t bytes = 10) const {
    std::string text = "%!PS-Adobe-3.0\n%%EndComments\n%%BeginSetup\n%%EndSetup\n";
    for (int page = 1; page <= pages; ++page) {
      const std::string number = std::to_string(page);
      text += "%%Page: " + number + " " + number + "\n" + std::string(bytes, '%') + "\nshowpage\n";
    }
    return folder_.file("in.ps", text + "%%Trailer\n%%EOF\n");
  }

  // Runs the script, in which $FILTER is the whole call, and answers what it said.
  Outcome shell(const std::string& script, const std::string& copies = "1",
                const std::string& options = kOptions) {
    return runProgram({"/bin/bash", "-c", "cd '" + folder_.path() + "'\n" + script},
                      {{"PPD", TEST_DATA "/zephrel-ps-9000.ppd"},
                       {"CONTENT_TYPE", "application/postscript"},
                       {"CUPS_SERVERBIN", folder_ / "cups"},
                       {"TMPDIR", folder_ / "temporary"},
                       {"OPTIONS", options},
                       {"FILTER", std::string(FILTER_PROGRAM) + " 1 user title " + copies}});
  }

  // The same for a script of one call, which writes to the file "out".
  Outcome run(const std::string& copies = "1", const std::string& options = kOptions) {
    return shell(R"($FILTER "$OPTIONS" in.ps >out)", copies, options);
  }

  TemporaryFolder folder_;
};

TEST_F(FilterFaults, AFilterThatFailsEndsTheJobWithItsReason) {
  (void)document(3);
  cupsFilter("pstops", "echo 'ERROR: no paper' >&2; cat; exit 3");
  for (const char* options : {kOptions, "sides=one-sided"}) {
    const Outcome outcome = run("1", options);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, AllOf(HasSubstr("ERROR: no paper\n"),
                                      HasSubstr("ERROR: The filter pstops failed with status 3.\n"),
                                      Not(HasSubstr("PAGE:"))));
  }
}

TEST_F(FilterFaults, WhatAFailedFilterWroteDoesNotEndLikeAWholeJob) {
  (void)document(3);
  cupsFilter("pstops", "head -c 120; exit 1");
  EXPECT_EQ(run().status, 1);
  EXPECT_THAT(contentsOfFile(folder_ / "out"), Not(HasSubstr("%%Trailer")));
}

TEST_F(FilterFaults, AFilterThatIsKilledEndsTheJob) {
  (void)document(3);
  cupsFilter("pstops", "kill -KILL $$");
  EXPECT_EQ(run().status, 1);
  EXPECT_THAT(run().errors, HasSubstr("ERROR: The filter pstops was ended by signal 9.\n"));
}

TEST_F(FilterFaults, AFilterThatIsMissingIsNamed) {
  (void)document(3);
  EXPECT_THAT(run().errors, HasSubstr("ERROR: The filter pstops cannot be run"));
}

TEST_F(FilterFaults, ADocumentThatIsMissingIsReported) {
  EXPECT_EQ(run().status, 1);
  EXPECT_THAT(run().errors, HasSubstr("No such file"));
}

TEST_F(FilterFaults, APPDThatIsBrokenIsReported) {
  (void)document(1);
  const Outcome outcome = shell(R"(PPD=in.ps $FILTER "$OPTIONS" in.ps >out)");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("ERROR: The PPD in.ps cannot be used: "));
}

// The process of the filter that hangs is in "hanging", that of its own child in "child".
constexpr const char* kHanging = "sleep 1000 & echo $! >child; echo $$ >hanging; cat; wait";
constexpr const char* kStart =
    "$FILTER \"$OPTIONS\" in.ps >out 2>messages & filter=$!\n"
    "until [ -s hanging ]; do sleep 0.01; done\n";
constexpr const char* kLeft =
    "for file in hanging child; do\n"
    "  if kill -0 $(<$file) 2>/dev/null; then echo left: $file; kill -KILL $(<$file); fi\n"
    "done\n";

TEST_F(FilterFaults, ACancelledJobLeavesNoProcessBehind) {
  (void)document(3);
  for (const std::string& manner : {std::string(), std::string("trap '' TERM; ")}) {
    cupsFilter("pstops", manner + kHanging);
    const Outcome outcome = shell("rm -f hanging child\n" + std::string(kStart) +
                                  "kill -TERM $filter; wait $filter; echo $?\n" + kLeft);
    EXPECT_EQ(outcome.output, "1\n") << manner;
    EXPECT_THAT(contentsOfFile(folder_ / "messages"), Not(HasSubstr("ERROR")));
  }
}

TEST_F(FilterFaults, ACancelledJobLeavesNoFileOfItsFiltersBehind) {
  (void)document(3);
  cupsFilter("pstops",
             "mkdir $TMPDIR/folder; echo left >$TMPDIR/folder/file; " + std::string(kHanging));
  const Outcome outcome = shell(std::string(kStart) +
                                "find temporary -name file | wc -l; kill -TERM $filter; "
                                "wait $filter; find temporary -name file | wc -l");
  EXPECT_EQ(outcome.output, "1\n0\n");
}

// Processes of others are ended by the system then, in their own time.
TEST_F(FilterFaults, AKilledFilterTakesItsFiltersWithIt) {
  (void)document(3);
  cupsFilter("pstops", "echo $$ >hanging; exec sleep 1000");
  const Outcome outcome =
      shell(std::string(kStart) +
            "kill -KILL $filter; wait $filter; for try in {1..1000}; do\n"
            "kill -0 $(<hanging) 2>/dev/null || { echo gone; exit; }; sleep 0.01; done; echo left");
  EXPECT_THAT(outcome.output, HasSubstr("gone"));
  (void)shell("rmdir temporary/publishingtops.*");  // nobody was left to do that
}

// The one that does not read any more has its own reason, which is not to be covered.
TEST_F(FilterFaults, APrinterThatTakesNoMoreEndsTheJobWithoutAMessage) {
  (void)document(200, 10000);
  cupsFilter("pstops", "cat");
  const Outcome outcome =
      shell("$FILTER \"$OPTIONS\" in.ps | head -c 100 >out; echo ${PIPESTATUS[0]}");
  EXPECT_EQ(outcome.output, "1\n");
  EXPECT_THAT(outcome.errors, Not(HasSubstr("ERROR")));
}

TEST_F(FilterFaults, AFullDiskIsReported) {
  (void)document(40, 100000);
  cupsFilter("pstops", "cat");
  // The limit is that of the filter's own files; its output goes through a pipe.
  const std::string limited =
      "(ulimit -f 2000; trap '' XFSZ; exec $FILTER \"$OPTIONS\" in.ps) | cat >out; "
      "echo ${PIPESTATUS[0]}";
  const Outcome outcome = shell(limited, "3", std::string(kOptions) + " Collate=true");
  EXPECT_EQ(outcome.output, "1\n");
  EXPECT_THAT(outcome.errors,
              AllOf(HasSubstr("ERROR: There is no room in " + (folder_ / "temporary")),
                    Not(HasSubstr("PAGE:"))));
}

TEST_F(FilterFaults, APrinterWithoutRoomIsReported) {
  (void)document(3);
  cupsFilter("pstops", "cat");
  const Outcome outcome = shell("$FILTER \"$OPTIONS\" in.ps >/dev/full");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("ERROR: "));
}

TEST_F(FilterFaults, WrongArgumentsAreUsage) {
  const Outcome outcome = runProgram({FILTER_PROGRAM, "1", "user"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("Usage: publishingtops"));
}

}  // namespace
}  // namespace publishing
