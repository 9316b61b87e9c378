// SPDX-License-Identifier: Apache-2.0
#include "printing/FeaturesOff.h"

#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string markedChoice(const Printer& printer, const char* option) {
  for (const PPDChoice& choice : printer.ppd()->choices(option)) {
    if (choice.marked) return choice.choice;
  }
  return {};
}

class FeaturesOffTest : public testing::Test {
 protected:
  Printer printer(const std::string& ppd) { return Printer::openPPD(folder.file("a.ppd", ppd)); }

  TemporaryFolder folder;
};

TEST_F(FeaturesOffTest, MediumOfAFeatureThatIsOffLeavesTheJob) {
  Printer opened = Printer::openPPD(kSamplePPD);
  JobTicket ticket;
  ticket.setValue(kCoverModeState, "Off");
  ticket.setValue(kCoverMediaType, "Leather");
  ticket.setValue(kPageinsertState, "On");
  ticket.setValue(kPageMediaType, "Recycled");
  takeOutMediaOff(ticket, opened);
  EXPECT_EQ(ticket.getValue(kCoverMediaType), std::nullopt);
  EXPECT_EQ(ticket.getValue(kPageMediaType), "Recycled");
  EXPECT_EQ(markedChoice(opened, cCoverMediaType), "PrnDef");
  EXPECT_EQ(markedChoice(opened, cPageMediaType), "Recycled");
}

TEST_F(FeaturesOffTest, DefaultThatWouldBringAMediumInIsOverruled) {
  const std::string leather =
      changedPPD("*DefaultCoverMediaType: PrnDef", "*DefaultCoverMediaType: Leather");
  std::string withoutPrnDef = leather;
  const std::string printerDefault = "CoverMediaType PrnDef/Printer Default";
  withoutPrnDef.replace(withoutPrnDef.find(printerDefault), printerDefault.size(),
                        "CoverMediaType Glossy/Glossy Paper");
  for (const auto& [ppd, said] : {std::pair(leather, "PrnDef"), {withoutPrnDef, "None"}}) {
    Printer opened = printer(ppd);
    JobTicket ticket;
    ticket.setValue(kCoverModeState, "Off");
    takeOutMediaOff(ticket, opened);
    EXPECT_EQ(ticket.getValue(kCoverMediaType), said);
    EXPECT_EQ(markedChoice(opened, cCoverMediaType), said);
    EXPECT_EQ(ticket.getValue(kPageMediaType), std::nullopt);
  }
}

TEST_F(FeaturesOffTest, MediumOfAFeatureThatIsOffConflictsWithNothing) {
  Printer opened = Printer::openPPD(kSamplePPD);
  JobTicket ticket;
  ticket.setValue("InputSlot", "Bypass");  // which no cover paper goes with, the default's neither
  opened.mark(ticket);
  ASSERT_THAT(opened.ppd()->conflicts(), SizeIs(1));
  EXPECT_THAT(conflictsOf(ticket, *opened.ppd()), IsEmpty());
  ticket.setValue(kCoverModeState, "On");
  const auto conflicts = conflictsOf(ticket, *opened.ppd());
  ASSERT_THAT(conflicts, SizeIs(1));
  EXPECT_THAT(conflicts[0].text(), HasSubstr("Bypass"));
}

}  // namespace
}  // namespace publishing
