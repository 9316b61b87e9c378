// SPDX-License-Identifier: Apache-2.0
#include "printing/JobTicket.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingKeys.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

// The message with which the option is refused; empty when it is not.
std::string refusal(const std::string& name, const std::string& value) {
  JobTicket ticket;
  ticket.setValue(name, value);
  try {
    (void)ticket.jobOptions();
  } catch (const PrintError& error) {
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    return error.what();
  }
  return {};
}

TEST(JobTicket, DuplexModeFollowsSides) {
  struct {
    Sides sides;
    const char* keyword;
    std::int32_t mode;
  } const table[] = {{Sides::OneSided, "one-sided", 1},
                     {Sides::TwoSidedLongEdge, "two-sided-long-edge", 2},
                     {Sides::TwoSidedShortEdge, "two-sided-short-edge", 3}};
  for (const auto& row : table) {
    JobTicket ticket;
    ticket.setSides(row.sides);
    EXPECT_EQ(ticket.getDuplex(), row.mode);
    EXPECT_THAT(ticket.jobOptions(), UnorderedElementsAre(Pair("sides", row.keyword)));
  }
}

TEST(JobTicket, DuplexModeIsOneSidedWithoutSidesAndUnknownForAnotherWord) {
  JobTicket ticket;
  EXPECT_EQ(ticket.getDuplex(), 1);
  ticket.setValue("sides", "three-sided");
  EXPECT_EQ(ticket.getDuplex(), std::nullopt);
}

TEST(JobTicket, NumberUpTellsThePanelOfSeveralPagesOnly) {
  JobTicket ticket;
  ticket.setNumberUp(4);
  EXPECT_EQ(ticket.getValue(kNup), "1");
  EXPECT_THAT(ticket.jobOptions(), UnorderedElementsAre(Pair("number-up", "4")));
  ticket.setNumberUp(1);
  EXPECT_EQ(ticket.getValue(kNup), std::nullopt);
  EXPECT_THAT(ticket.jobOptions(), UnorderedElementsAre(Pair("number-up", "1")));
}

TEST(JobTicket, RefusesImpossibleCounts) {
  JobTicket ticket;
  for (const int pages : {-1, 0, 3, 5, 32})
    EXPECT_THROW(ticket.setNumberUp(pages), PrintError);
  for (const int copies : {-1, 0})
    EXPECT_THROW(ticket.setCopies(copies), PrintError);
  EXPECT_THAT(ticket.jobOptions(), IsEmpty());
}

TEST(JobTicket, ReverseOrderIsAnOutputOrder) {
  JobTicket ticket;
  ticket.setReverse(true);
  EXPECT_EQ(ticket.getValue(kOutputOrder), "Reverse");
  ticket.setReverse(false);
  EXPECT_NE(ticket.getValue(kOutputOrder), "Reverse");
}

TEST(JobTicket, RefusesValuesThatCupsWouldChangeAndNamesTheOption) {
  const std::string values[] = {"true",
                                "False",
                                "{a=b}",
                                "a\nb",
                                "a\tb",
                                "a\x7F",
                                std::string("a\0b", 3),
                                std::string(256, 'x'),
                                "\xFF\xFE",
                                "\xC3"};
  for (const std::string& value : values) {
    EXPECT_THAT(refusal("CoverMediaType", value), HasSubstr("CoverMediaType")) << value;
  }
}

TEST(JobTicket, SendsValuesThatArriveAsTheyStand) {
  const std::string values[] = {"",          "Tray2",   "3,5,9,", "5, 8 12", "a\"b'c",
                                "back\\end", "a{b}",    "truely", "Größe A", std::string(255, 'x'),
                                "A=x B=y",   "$(touch)"};
  for (const std::string& value : values)
    EXPECT_EQ(refusal("CoverMediaType", value), "") << value;
}

TEST(JobTicket, RefusesNamesThatCupsWouldSplit) {
  const std::string names[] = {"",          "A B",  "A=B",  "9lives", "-o",
                               "\xC3\xA9t", "A\nB", "A{b}", "A/B",    std::string(256, 'n')};
  for (const std::string& name : names)
    EXPECT_NE(refusal(name, "x"), "") << name;
}

TEST(JobTicket, OptionsWithATypeAreSentOnlyAsCupsWritesThem) {
  const struct {
    const char* name;
    const char* value;
    const char* refusal;  // a part of it
  } table[] = {
      {"copies", "2", ""},
      {"copies", "two", "to \"0\""},
      {"copies", "007", "to \"7\""},
      {"copies", "", "copies"},
      {"page-ranges", "1-3,5", ""},
      {"page-ranges", "5-5", "to \"5\""},
      {"printer-resolution", "600dpi", ""},
      {"printer-resolution", "600", "printer-resolution"},
      {"landscape", "yes", "landscape"},
      {"media", "A4,Tray1", ""},
      {"media", "A 4", "does not reach the printer"},
      {"document-format", "application/pdf", "does not reach the printer"},
      {"raw", "1", "does not reach the printer"},
      {"document-copies", "2", "does not reach the printer"},
      {"attributes-charset", "latin1", "does not reach the printer"},
      {"Attributes-Natural-Language", "de", "does not reach the printer"},
  };
  for (const auto& row : table) {
    const std::string message = refusal(row.name, row.value);
    EXPECT_THAT(message, HasSubstr(row.refusal)) << row.name << '=' << row.value;
    EXPECT_EQ(message.empty(), *row.refusal == '\0') << message;
  }
}

// CUPS would keep one of them: the panel's choice or the other.
TEST(JobTicket, RefusesTwoNamesThatDifferInCaseOnly) {
  JobTicket ticket;
  ticket.setValue("CoverMediaType", "Tray2");
  ticket.setValue("covermediatype", "Tray3");
  try {
    (void)ticket.jobOptions();
    FAIL();
  } catch (const PrintError& error) {
    EXPECT_EQ(error.kind(), PrintError::Kind::Refused);
    EXPECT_THAT(error.what(), HasSubstr("CoverMediaType and covermediatype"));
  }
}

TEST(JobTicket, MessagesShowNoRawBytes) {
  const std::string message = refusal("CoverMediaType", "a\n\xFF" + std::string(1000, 'x'));
  EXPECT_EQ(message.find('\n'), std::string::npos);
  EXPECT_EQ(message.find('\xFF'), std::string::npos);
  EXPECT_LT(message.size(), 500u);
}

}  // namespace
}  // namespace publishing
