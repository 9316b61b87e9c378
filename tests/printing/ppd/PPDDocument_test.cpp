// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

PPDDocument opened(const TemporaryFolder& folder, const std::string& contents) {
  return PPDDocument::openFile(folder.file("test.ppd", contents));
}

TEST(PPDDocument, OpensASoundFileWithItsDefaultsMarkedAndNoWarning) {
  const PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
  EXPECT_THAT(ppd.warnings(), IsEmpty());
  EXPECT_TRUE(ppd.choice("InputSlot", "Tray1")->marked);
  EXPECT_FALSE(ppd.choice("InputSlot", "Tray2")->marked);
  EXPECT_THAT(ppd.choices("CoverMediaType"), SizeIs(11));
  EXPECT_THAT(ppd.choices("NoSuchOption"), IsEmpty());
}

TEST(PPDDocument, WarnsOfFilesThatOpenAlthoughTheyAreDamaged) {
  const std::string whole = contentsOfFile(kSamplePPD);
  const std::string damaged[] = {
      whole.substr(0, whole.size() / 2),
      changedPPD("(Thick)>>setpagedevice\"", "(Thick)>>setpagedevice"),
      changedPPD("*CloseUI: *Duplex\n", ""),
  };
  for (const std::string& contents : damaged) {
    const TemporaryFolder folder;
    EXPECT_THAT(opened(folder, contents).warnings(),
                ElementsAre(AllOf(HasSubstr(folder / "test.ppd"), HasSubstr("line"))));
  }
}

TEST(PPDDocument, RefusesWhatIsNoPPDAndNamesTheFile) {
  const TemporaryFolder folder;
  const std::string paths[] = {folder.file("empty.ppd", ""), folder.file("junk.ppd", "junk\n"),
                               folder / "missing.ppd", folder.path()};
  for (const std::string& path : paths) {
    const PrintError error = errorOf([&path] { PPDDocument::openFile(path); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), HasSubstr(path));
  }
}

TEST(PPDDocument, RefusalsNameTheLine) {
  const TemporaryFolder folder;
  const std::string tooLong =
      changedPPD("*InputSlot Tray4/", "*InputSlot " + std::string(41, 'T') + "/");
  EXPECT_THAT(errorOf([&] { opened(folder, tooLong); }).what(), HasSubstr("line 66: "));
}

TEST(PPDDocument, AMissingOrUnknownDefaultMarksNothing) {
  const TemporaryFolder folder;
  for (const char* line : {"", "*DefaultDuplex: Nope\n"}) {
    const PPDDocument ppd = opened(folder, changedPPD("*DefaultDuplex: None\n", line));
    for (const PPDChoice& choice : ppd.choices("Duplex"))
      EXPECT_FALSE(choice.marked);
    EXPECT_EQ(ppd.markedSides(), std::nullopt);
  }
}

TEST(PPDDocument, SidesMarkTheDuplexOption) {
  PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
  EXPECT_EQ(ppd.markedSides(), Sides::OneSided);
  for (const Sides sides : {Sides::TwoSidedShortEdge, Sides::TwoSidedLongEdge, Sides::OneSided}) {
    ppd.mark({{"sides", keywordOf(sides)}});
    EXPECT_EQ(ppd.markedSides(), sides);
  }
}

TEST(PPDDocument, MarksKnownChoicesOnlyByteByByte) {
  PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
  EXPECT_TRUE(ppd.mark("CoverMediaType", "Tray2"));
  EXPECT_FALSE(ppd.mark("CoverMediaType", "tray3"));
  EXPECT_FALSE(ppd.mark("covermediatype", "Tray3"));
  EXPECT_FALSE(ppd.mark("CoverMediaType", ""));
  EXPECT_FALSE(ppd.mark("NoSuchOption", "Tray3"));
  EXPECT_TRUE(ppd.choice("CoverMediaType", "Tray2")->marked);
  ppd.markDefaults();
  EXPECT_TRUE(ppd.choice("CoverMediaType", "PrnDef")->marked);
}

TEST(PPDDocument, TextsAreFitToBeShown) {
  const TemporaryFolder folder;
  const PPDDocument ppd =
      opened(folder, changedPPD("*InputSlot Tray2/Tray 2:", "*InputSlot Tray2/A<0A>B<22>\xE4:"));
  EXPECT_EQ(ppd.choice("InputSlot", "Tray2")->choiceText, "A B\"\xEF\xBF\xBD");
  EXPECT_EQ(ppd.choice("CoverMediaType", "Leather")->choiceText, "Leather Grain “Größe A”");
}

}  // namespace
}  // namespace publishing
