// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/CoverConstraintsCheck.h"

#include <gmock/gmock.h>

#include "printing/covers/CoversPPD.h"
#include "tests/printing/covers/SampleDrivers.h"

namespace publishing::corpus {
namespace {

using test::optionLines;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kBefore =
    test::ppdText(kPostScriptMedia + optionLines("Duplex", {"None", "Long", "Short"}, "None") +
                  optionLines("Stapler", {"Off", "One"}, "Off") +
                  "*UIConstraints: *InputSlot Tray2 *Duplex\n"
                  "*UIConstraints: *InputSlot Tray1 *MediaType Coated\n"
                  "*UIConstraints: *Stapler One *MediaType Coated\n"
                  "*cupsUIConstraints: \"*InputSlot Auto *Duplex Long\"\n");

ConstraintComparison compared(const std::string& after) {
  return compareCoverConstraints(kBefore, after, "sample", true);
}

std::string without(const std::string& line) {
  std::string text = withCovers(kBefore);
  const std::size_t place = text.find(line);
  EXPECT_NE(place, std::string::npos) << line;
  return text.erase(place, line.size());
}

TEST(CoverConstraintsCheck, FindsNoDifferenceInWhatEnablingMakes) {
  const ConstraintComparison found = compared(withCovers(kBefore));
  EXPECT_THAT(found.different, IsEmpty());
  // Three trays and three types, each as cover and as insert, with eight choices of others.
  EXPECT_EQ(found.pairs, 2U * 6U * 8U);
  // Tray2 with Long and Short, Tray1 with Coated both ways round, Coated with One.
  EXPECT_EQ(found.forbidden, 2U * 5U);
  EXPECT_EQ(found.queries, 2U * 6U * 3U);
  EXPECT_GT(found.queriesForbidden, 0U);
}

TEST(CoverConstraintsCheck, NoticesConstraintsThatAreMissing) {
  for (const char* line : {"*UIConstraints: *CoverMediaType Tray2 *Duplex\n",
                           "*UIConstraints: *PageMediaType Tray1 *MediaType Coated\n",
                           "*UIConstraints: *InputSlot Tray1 *CoverMediaType Coated\n",
                           "*UIConstraints: *Stapler One *PageMediaType Coated\n",
                           "*cupsUIConstraints: \"*CoverMediaType Slot.Auto *Duplex Long\"\n"})
    EXPECT_THAT(compared(without(line)).different, Not(IsEmpty())) << line;
}

TEST(CoverConstraintsCheck, NoticesConstraintsThatShouldNotBeThere) {
  for (const char* line : {"*UIConstraints: *CoverMediaType Tray1 *Duplex Long\n",
                           "*UIConstraints: *PageMediaType Plain *InputSlot Tray2\n",
                           "*cupsUIConstraints: \"*CoverMediaType Tray1 *Duplex Short\"\n"})
    EXPECT_THAT(compared(withCovers(kBefore) + line).different, Not(IsEmpty())) << line;
}

}  // namespace
}  // namespace publishing::corpus
