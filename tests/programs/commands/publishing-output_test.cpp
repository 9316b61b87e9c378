// SPDX-License-Identifier: Apache-2.0
// What the program publishing prints into a file.
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"
#include "tests/programs/commands/PublishingWithoutServer.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PublishingToAFile : public Publishing {
 protected:
  // The PostScript of a document of three pages for the printer of that PPD.
  [[nodiscard]] std::string printed(const std::string& ppd, const Words& options) {
    const std::string document = write("three.pdf", samplePDF(3));
    Words words = {"print", "--ppd", ppd, "--output", path("out.ps")};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(document);
    outcome_ = run(words);
    EXPECT_EQ(outcome_.status, 0) << outcome_.errors;
    return contentsOfFile(path("out.ps"));
  }

  [[nodiscard]] static std::ptrdiff_t sidesIn(const std::string& postScript) {
    std::ptrdiff_t count = 0;
    for (std::size_t at = 0; (at = postScript.find("\n%%Page: ", at)) != std::string::npos; ++at)
      ++count;
    return count;
  }

  // The sample PPD after "printer enable".
  [[nodiscard]] std::string enabledPPD() const {
    const Outcome outcome = run({"printer", "enable", "--ppd", kPPD, "--output", path("on.ppd")});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return path("on.ppd");
  }

  Outcome outcome_;
};

TEST_F(PublishingToAFile, MakesEverySheetOnItsPaper) {
  const Words options = {
      "--sides=two-sided-long-edge", "--cover=front-back", "--cover-media=Tray2",
      "--cover-sides=none",          "--insert=2",         "--insert-media=Tray3",
      "--insert-sides=none"};
  for (const std::string& ppd : {std::string(kPPD), enabledPPD()}) {
    const std::string postScript = printed(ppd, options);
    // C-|- B1|- I-|- B2|3 C-|-
    EXPECT_EQ(sidesIn(postScript), 10) << ppd;
    EXPECT_THAT(postScript, AllOf(HasSubstr("%%BeginFeature: *InputSlot Tray2\n"),
                                  HasSubstr("%%BeginFeature: *InputSlot Tray3\n"),
                                  HasSubstr("%%BeginFeature: *CoverMediaType PrnDef\n"),
                                  HasSubstr("%%BeginFeature: *Duplex DuplexNoTumble\n")));
    EXPECT_THAT(outcome_.errors, IsEmpty());
  }
}

TEST_F(PublishingToAFile, MakesAsManyCopiesAsAreWanted) {
  EXPECT_EQ(sidesIn(printed(kPPD, {"--cover=front", "--cover-media=Tray2", "--cover-sides=none",
                                   "-n", "2", "-o", "collate=true"})),
            8);
}

TEST_F(PublishingToAFile, PrintsJobsWithoutCoversOnEveryPPD) {
  for (const std::string& ppd : {std::string(kPPD), enabledPPD()})
    EXPECT_EQ(sidesIn(printed(ppd, {})), 3) << ppd;
}

TEST_F(PublishingToAFile, KeepsTheEarlierOutputWhenPrintingFails) {
  const std::string output = write("out.ps", "earlier");
  const Outcome outcome =
      run({"print", "--ppd", kPPD, "--output", output, "--insert", "5-5", document_});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(contentsOfFile(output), "earlier");
}

TEST_F(PublishingToAFile, OverwritesNeitherTheDocumentNorThePPD) {
  const std::string ppd = write("own.ppd", contentsOfFile(std::string(SOURCE_FOLDER "/") + kPPD));
  const std::string link = path("link.ps");
  std::filesystem::create_hard_link(document_, link);
  const std::string before = contentsOfFile(document_);
  for (const std::string& output : {document_, link, path("./document.ps"), ppd}) {
    const Outcome outcome = run({"print", "--ppd", ppd, "--output", output, document_});
    EXPECT_EQ(outcome.status, 2) << output;
    EXPECT_THAT(outcome.errors, HasSubstr("would overwrite")) << output;
  }
  const Outcome redirected =
      runProgram({"/bin/sh", "-c", "exec \"$0\" \"$@\" <" + document_, PUBLISHING_PROGRAM, "print",
                  "--ppd", ppd, "--output", document_, "-"});
  EXPECT_EQ(redirected.status, 2);
  EXPECT_EQ(contentsOfFile(document_), before);
}

TEST_F(PublishingToAFile, LeavesNothingWhenPrintingIntoAFileIsInterrupted) {
  const std::string large = write("large.pdf", samplePDF(20000));
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    RunningProgram program(
        {PUBLISHING_PROGRAM, "print", "--ppd", kPPD, "--output", path("out.ps"), large});
    const std::string children = "/proc/" + std::to_string(program.process()) + "/task/" +
                                 std::to_string(program.process()) + "/children";
    std::string filters;
    while (filters.empty())
      filters = contentsOfFile(children);
    program.signal(signal);
    EXPECT_EQ(program.finish().signal, signal);
    EXPECT_NE(kill(-std::stoi(filters), 0), 0) << "the filters go on";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 2);
  }
}

}  // namespace
}  // namespace publishing
