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

using Marks = std::map<std::string, std::string>;

std::vector<std::string> textsOf(const std::vector<Conflict>& conflicts) {
  std::vector<std::string> texts;
  for (const Conflict& conflict : conflicts)
    texts.push_back(conflict.text());
  return texts;
}

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

TEST(PPDDocument, ConflictsNameAllSides) {
  const struct {
    Marks marks;
    std::vector<std::string> texts;
  } table[] = {
      {{}, {}},
      {{{"CoverMediaType", "Coated"}}, {}},
      {{{"CoverMediaType", "Coated"}, {"InputSlot", "Tray2"}},
       {"Cover Paper: Coated Paper. Conflicts with Paper Source: Tray 2 (CoverMediaType=Coated, "
        "InputSlot=Tray2)"}},
      {{{"MediaType", "Transparency"}},
       {"Paper Source: Tray 1. Conflicts with Media Type: Transparency (InputSlot=Tray1, "
        "MediaType=Transparency)"}},
      // A constraint on any choice of the duplex option, which "None" is not.
      {{{"InputSlot", "Tray4"}, {"MediaType", "Transparency"}}, {}},
      {{{"InputSlot", "Tray4"}, {"MediaType", "Transparency"}, {"sides", "two-sided-long-edge"}},
       {"2-Sided Printing: Long Edge. Conflicts with Media Type: Transparency "
        "(Duplex=DuplexNoTumble, MediaType=Transparency)"}},
  };
  for (const auto& row : table) {
    PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
    ppd.mark(row.marks);
    EXPECT_EQ(textsOf(ppd.conflicts()), row.texts);
  }
}

TEST(PPDDocument, OneDirectionOfAConstraintIsEnough) {
  for (const char* direction : {"*UIConstraints: *InputSlot Tray2 *CoverMediaType Coated\n",
                                "*UIConstraints: *CoverMediaType Coated *InputSlot Tray2\n"}) {
    const TemporaryFolder folder;
    PPDDocument ppd = opened(folder, changedPPD(direction, ""));
    ppd.mark({{"CoverMediaType", "Coated"}, {"InputSlot", "Tray2"}});
    EXPECT_THAT(ppd.conflicts(), SizeIs(1));
  }
}

TEST(PPDDocument, ConflictsAmongThreeOptionsNeedAllThree) {
  const TemporaryFolder folder;
  PPDDocument ppd =
      opened(folder, contentsOfFile(kSamplePPD) +
                         "*cupsUIConstraints One: \"*PageSize A5 *InputSlot Tray4 *MediaType\"\n");
  ppd.mark({{"PageSize", "A5"}});
  EXPECT_THAT(ppd.conflicts(), IsEmpty());
  ppd.mark({{"InputSlot", "Tray4"}});
  EXPECT_THAT(
      textsOf(ppd.conflicts()),
      ElementsAre("Paper Source: Tray 4. Conflicts with Media Type: Plain Paper, Page Size: "
                  "A5 (InputSlot=Tray4, MediaType=Plain, PageSize=A5)"));
}

TEST(PPDDocument, ConstraintsOnUnknownOptionsAreIgnored) {
  const TemporaryFolder folder;
  const PPDDocument ppd = opened(folder, contentsOfFile(kSamplePPD) +
                                             "*UIConstraints: *Nope *InputSlot Tray1\n"
                                             "*UIConstraints: *InputSlot Nope *MediaType Plain\n"
                                             "*UIConstraints: *InputSlot Tray1\n"
                                             "*cupsUIConstraints: \"*Nope *InputSlot Tray1\"\n");
  EXPECT_THAT(ppd.conflicts(), IsEmpty());
}

// For every pair of choices of different options.
TEST(PPDDocument, FindsConflictsExactlyWhereLibcupsDoes) {
  PPDDocument ppd = PPDDocument::openFile(kSamplePPD);
  const std::vector<std::string> options = {"PageSize",      "InputSlot",      "MediaType",
                                            "Duplex",        "CoverMediaType", "PageMediaType",
                                            "TransMediaType"};
  int conflicting = 0;
  for (const std::string& first : options) {
    for (const std::string& second : options) {
      for (const PPDChoice& one : ppd.choices(first)) {
        for (const PPDChoice& other : ppd.choices(second)) {
          ppd.markDefaults();
          ppd.mark(first, one.choice);
          ppd.mark(second, other.choice);
          const bool expected = ppdConflicts(ppd.get()) > 0;
          EXPECT_EQ(!ppd.conflicts().empty(), expected)
              << first << '=' << one.choice << ' ' << second << '=' << other.choice;
          conflicting += expected ? 1 : 0;
        }
      }
    }
  }
  EXPECT_GT(conflicting, 0);
}

}  // namespace
}  // namespace publishing
