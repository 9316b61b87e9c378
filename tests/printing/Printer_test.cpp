// SPDX-License-Identifier: Apache-2.0
#include "printing/Printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingKeys.h"
#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Not;
using ::testing::Pair;

TEST(Printer, APPDAloneIsNoQueueAndHasNoDefaultOptions) {
  const Printer printer = Printer::openPPD(kSamplePPD);
  EXPECT_FALSE(printer.isQueue());
  EXPECT_EQ(printer.name(), kSamplePPD);
  EXPECT_THAT(printer.defaults(), IsEmpty());
  EXPECT_THAT(printer.warnings(), IsEmpty());
  EXPECT_EQ(printer.ppdFile(), printer.ppd()->get());
}

TEST(Printer, ANewTicketHasThePPDsSides) {
  const TemporaryFolder folder;
  const struct {
    const char* choice;
    std::int32_t duplex;
  } table[] = {{"None", 1}, {"DuplexNoTumble", 2}, {"DuplexTumble", 3}, {"Nope", 1}};
  for (const auto& row : table) {
    const std::string contents =
        changedPPD("*DefaultDuplex: None", std::string("*DefaultDuplex: ") + row.choice);
    EXPECT_EQ(Printer::openPPD(folder.file("test.ppd", contents)).newTicket().getDuplex(),
              row.duplex);
  }
}

TEST(Printer, MarksFollowTheTicketAndForgetTheOneBefore) {
  Printer printer = Printer::openPPD(kSamplePPD);
  JobTicket ticket = printer.newTicket();
  ticket.setSides(Sides::TwoSidedLongEdge);
  ticket.setValue(cCoverMediaType, "Tray2");
  printer.mark(ticket);
  EXPECT_EQ(printer.ppd()->markedSides(), Sides::TwoSidedLongEdge);
  EXPECT_TRUE(printer.ppd()->choice(cCoverMediaType, "Tray2")->marked);
  printer.mark(printer.newTicket());
  EXPECT_EQ(printer.ppd()->markedSides(), Sides::OneSided);
  EXPECT_TRUE(printer.ppd()->choice(cCoverMediaType, "PrnDef")->marked);
}

TEST(Printer, AMarkThatCannotBeSentChangesNothing) {
  Printer printer = Printer::openPPD(kSamplePPD);
  JobTicket ticket;
  ticket.setValue(cCoverMediaType, "Tray2");
  printer.mark(ticket);
  ticket.setValue("VtPageinsertNums", "3\n5");
  EXPECT_THROW(printer.mark(ticket), PrintError);
  EXPECT_TRUE(printer.ppd()->choice(cCoverMediaType, "Tray2")->marked);
}

TEST(Printer, RefusesMediaThatThePrinterDoesNotHave) {
  const Printer printer = Printer::openPPD(kSamplePPD);
  for (const char* option : {cCoverMediaType, cPageMediaType}) {
    JobTicket ticket;
    ticket.setValue(option, "Gold");
    const PrintError error = errorOf([&] { (void)printer.jobOptions(ticket); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    EXPECT_THAT(error.what(), AllOf(HasSubstr("Gold"), HasSubstr(option)));
  }
}

TEST(Printer, SendsTheTicketWithoutTheDialogsOwnKeys) {
  const Printer printer = Printer::openPPD(kSamplePPD);
  JobTicket ticket;
  ticket.setNumberUp(2);
  ticket.setValue(kPageinsertNums, "3,5,9,");
  const JobTicket::Options options = printer.jobOptions(ticket);
  EXPECT_THAT(options, AllOf(Contains(Pair("number-up", "2")),
                             Contains(Pair(kPageinsertNums, "3,5,9,")), Not(Contains(Key(kNup)))));
}

}  // namespace
}  // namespace publishing
