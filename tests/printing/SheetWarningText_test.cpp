// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetWarningText.h"

#include <gmock/gmock.h>

#include "tests/printing/SheetJobs.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> warnings(const Options& options, std::optional<int> pages = 10) {
  return warningsOf(sheetsOf(options, pages));
}

TEST(SheetWarningText, ThereIsNoneForAJobThatComesOutAsWanted) {
  EXPECT_THAT(warnings(kTwoSided + covers("2", "5") + inserts("0", "5,")), IsEmpty());
}

TEST(SheetWarningText, EveryReasonHasItsWords) {
  const Options covered = kTwoSided + covers("1", "1");
  EXPECT_THAT(warnings(covered + Options{{"number-up", "4"}}),
              ElementsAre("Covers and inserts are left out because 4 pages share a side. Print one "
                          "page per side."));
  EXPECT_THAT(warnings(covered + Options{{"booklet", "true"}}),
              ElementsAre("Covers and inserts are left out because a booklet is printed."));
  EXPECT_THAT(warnings(covered + Options{{"OutputOrder", "Reverse"}}),
              ElementsAre("Covers and inserts are left out because the last page comes out first. "
                          "Print in the normal order."));
  EXPECT_THAT(warnings(kTwoSided + covers("1", "99")),
              ElementsAre("The covers are left out: \"99\" says nothing about their sides."));
  EXPECT_THAT(
      warnings(kTwoSided + covers("7", "1")),
      ElementsAre("The covers are left out: \"7\" is neither the front cover nor both covers."));
  EXPECT_THAT(warnings(kTwoSided + inserts("9", "5,")),
              ElementsAre("The inserts are left out: \"9\" says nothing about their sides."));
  EXPECT_THAT(warnings(kTwoSided + inserts("0", "")),
              ElementsAre("The inserts are left out because no page is listed for them."));
  EXPECT_THAT(warnings(kTwoSided + inserts("0", "5,x")),
              ElementsAre("No insert for \"x\": that is no page number."));
}

TEST(SheetWarningText, NamesThePagesThatGetNoInsert) {
  EXPECT_THAT(warnings(covers("1", "1") + inserts("0", "1,5,400,")),
              ElementsAre("No insert for page 1: it is printed on a cover.",
                          "No insert for page 400: the last page comes before it."));
  EXPECT_THAT(warnings(kTwoSided + covers("1", "3") + inserts("0", "1,2,12,13,14,")),
              ElementsAre("No inserts for pages 1 and 2: they are printed on covers.",
                          "No inserts for pages 12\u201314: the last page comes before them."));
}

TEST(SheetWarningText, KnowsNoEndOfADocumentOfUnknownLength) {
  EXPECT_THAT(warnings(inserts("0", "400,"), std::nullopt), IsEmpty());
}

}  // namespace
}  // namespace publishing
