// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/EnabledPPD.h"

#include <gmock/gmock.h>

#include "tests/printing/covers/SampleDrivers.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing::corpus {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Key;

EnabledTally checked(const std::string& ppd, const std::string& cupstestppd = {}) {
  const TemporaryFolder folder;
  EnabledTally tally;
  checkEnabledPPD(folder.file("sample.ppd", ppd), "sample", cupstestppd, tally);
  return tally;
}

TEST(EnabledPPD, CountsAPrinterThatCanHaveCovers) {
  const EnabledTally tally = checked(test::ppdText(kPostScriptMedia));
  EXPECT_THAT(tally.wrong, IsEmpty());
  const KindTally& kind = tally.kinds.at("postscript");
  EXPECT_EQ(kind.files, 1U);
  EXPECT_EQ(kind.enabled, 1U);
  EXPECT_GT(kind.bytesAfter, kind.bytesBefore);
}

TEST(EnabledPPD, CountsRefusalsByReasonWithoutTheDriversName) {
  const EnabledTally tally =
      checked(test::ppdText("*cupsFilter: \"a/b 0 one\"\n" + kPostScriptMedia));
  EXPECT_THAT(tally.kinds.at("unknown").refusals, ElementsAre(Key(HasSubstr("filter ..., which"))));
  EXPECT_EQ(tally.kinds.at("unknown").enabled, 0U);
}

TEST(EnabledPPD, ComparesTheVerdictsOfAProgram) {
  const EnabledTally same = checked(test::ppdText(kPostScriptMedia), "true");
  EXPECT_THAT(same.wrong, IsEmpty());
  EXPECT_EQ(same.checkedByCups, 1U);
  const EnabledTally worse =
      checked(test::ppdText(kPostScriptMedia),
              "f() { if grep -q Cover \"$2\"; then echo '**FAIL**'; return 1; fi; }; f");
  EXPECT_THAT(worse.wrong, ElementsAre(HasSubstr("cupstestppd")));
  EXPECT_EQ(worse.moreFailures, 1U);
}

}  // namespace
}  // namespace publishing::corpus
