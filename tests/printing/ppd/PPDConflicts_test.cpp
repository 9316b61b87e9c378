// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDConflicts.h"

#include <gmock/gmock.h>

#include "printing/ppd/PPDDocument.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;
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

TEST(PPDConflicts, NameAllSides) {
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

TEST(PPDConflicts, NeedOneDirectionOfAConstraintOnly) {
  for (const char* direction : {"*UIConstraints: *InputSlot Tray2 *CoverMediaType Coated\n",
                                "*UIConstraints: *CoverMediaType Coated *InputSlot Tray2\n"}) {
    const TemporaryFolder folder;
    PPDDocument ppd = opened(folder, changedPPD(direction, ""));
    ppd.mark({{"CoverMediaType", "Coated"}, {"InputSlot", "Tray2"}});
    EXPECT_THAT(ppd.conflicts(), SizeIs(1));
  }
}

TEST(PPDConflicts, AmongThreeOptionsNeedAllThree) {
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

TEST(PPDConflicts, WithUnknownOptionsAreNone) {
  const TemporaryFolder folder;
  const PPDDocument ppd = opened(folder, contentsOfFile(kSamplePPD) +
                                             "*UIConstraints: *Nope *InputSlot Tray1\n"
                                             "*UIConstraints: *InputSlot Nope *MediaType Plain\n"
                                             "*UIConstraints: *InputSlot Tray1\n"
                                             "*cupsUIConstraints: \"*Nope *InputSlot Tray1\"\n");
  EXPECT_THAT(ppd.conflicts(), IsEmpty());
}

// For every pair of choices of different options.
TEST(PPDConflicts, AreFoundExactlyWhereLibcupsFindsThem) {
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
