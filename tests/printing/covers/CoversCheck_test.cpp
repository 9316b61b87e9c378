// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoversCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/covers/CoversPPD.h"
#include "tests/printing/Samples.h"
#include "tests/printing/covers/SampleDrivers.h"

namespace publishing {
namespace {

using test::optionLines;
using ::testing::HasSubstr;

void check(const std::string& lines) {
  checkCovers(test::ppdText(lines), "the sample");
}

TEST(CoversCheck, TakesWhatEnablingMakes) {
  EXPECT_NO_THROW(checkCovers(contentsOfFile(kSamplePPD), "the sample"));
  EXPECT_NO_THROW(check(withCovers(kPostScriptMedia)));
  EXPECT_NO_THROW(check(withCovers(kPostScriptTypes)));
}

TEST(CoversCheck, RefusesMediaThatDoNotEndWithTheTrays) {
  const std::string trays = optionLines("InputSlot", {"A", "B"});
  const auto both = [](const std::vector<std::string>& choices) {
    return optionLines("CoverMediaType", choices) + optionLines("PageMediaType", choices);
  };
  EXPECT_NO_THROW(check(trays + both({"PrnDef", "A", "Slot.B"})));
  for (const std::vector<std::string>& choices : {std::vector<std::string>{"PrnDef", "A"},
                                                  {"PrnDef", "B", "A"},
                                                  {"PrnDef", "A", "B", "Type"},
                                                  {"A", "B"},
                                                  {}}) {
    EXPECT_EQ(errorOf([&] { check(trays + both(choices)); }).kind(), PrintError::Kind::Refused);
  }
  EXPECT_EQ(errorOf([&] {
              check(trays + optionLines("CoverMediaType", {"PrnDef", "A", "B"}));
            }).kind(),
            PrintError::Kind::Refused);
}

TEST(CoversCheck, NamesThePPDThatCannotBeOpened) {
  const PrintError error = errorOf([] { checkCovers("no PPD", "the sample"); });
  EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
  EXPECT_THAT(error.what(), HasSubstr("the sample"));
}

}  // namespace
}  // namespace publishing
