// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/FoomaticDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

FoomaticDriver driverIn(const std::string& ppd) {
  return FoomaticDriver(statementsOf(ppd));
}

FoomaticDriver driverWithCommand(const std::string& command) {
  return driverIn("*FoomaticRIPCommandLine: \"" + command + "\"\n*End\n");
}

TEST(FoomaticDriver, FindsTheProgramsOfTheCommandLine) {
  const struct {
    const char* command;
    std::vector<std::string> programs;
  } table[] = {
      {"cat%A%B%Z", {"cat"}},
      {"gs -q -sDEVICE=ljet4%B%A%Z -sOutputFile=-%C -f -", {"gs"}},
      {"NOPDF=1 gs -q", {"gs"}},
      {"printf &quot;%%!PS\\n%A; rm -r /&quot;%%%%; cat;", {"cat", "printf"}},
      {"(printf &apos;@PJL\\n&apos;%G|perl -p -e &quot;s/a|b//&quot;);\n(gs -q %B | sed -e x)",
       {"gs", "perl", "printf", "sed"}},
      {"printf &quot;a \\&quot; | b&quot; | c", {"c", "printf"}},
      {"printf `date` && x || y & z", {"date", "printf", "x", "y", "z"}},
      {"&quot;/tmp/my program&quot; -x", {"\"/tmp/my program\""}},
      {"printf 'never closed | x", {"printf"}},
      {"", {}},
  };
  for (const auto& row : table) {
    const auto found = driverWithCommand(row.command).programs();
    EXPECT_EQ(std::vector<std::string>(found.begin(), found.end()), row.programs) << row.command;
  }
}

TEST(FoomaticDriver, JoinsLinesAndReadsEntities) {
  const FoomaticDriver driver = driverWithCommand("gs -q &&\n-x &lt;&gt;&amp;quot;&&\r\n-y");
  EXPECT_EQ(driver.commandLine(), "gs -q -x <>&quot;-y");
}

TEST(FoomaticDriver, FindsTheDevicesOfTheCommandLineAndOfEachOption) {
  const FoomaticDriver driver = driverIn(
      "*FoomaticRIPCommandLine: \"gs -sDEVICE=pxlmono%A | x\"\n"
      "*FoomaticRIPOptionSetting Mode=Gray: \" -sDEVICE=ljet4\"\n"
      "*FoomaticRIPOptionSetting Mode=Color: \" -sDEVICE=pxlcolor -r600\"\n");
  EXPECT_THAT(driver.devices(), ElementsAre("ljet4", "pxlcolor", "pxlmono"));
}

TEST(FoomaticDriver, KnowsWhatBecomesOfAnOption) {
  const FoomaticDriver driver = driverIn(
      "*FoomaticRIPOption InputSlot: enum CmdLine A\n"
      "*FoomaticRIPOptionSetting InputSlot=Lower: \" -dMedia&&\nPosition=5\"\n*End\n"
      "*FoomaticRIPOptionSetting InputSlot=Default: \"\"\n"
      "*FoomaticRIPOption Broken: enum\n");
  EXPECT_EQ(driver.styleOf("InputSlot"), "CmdLine");
  EXPECT_EQ(driver.styleOf("MediaType"), std::nullopt);
  EXPECT_EQ(driver.styleOf("Broken"), std::nullopt);
  EXPECT_EQ(driver.setting("InputSlot", "Lower"), " -dMediaPosition=5");
  EXPECT_EQ(driver.setting("InputSlot", "Default"), "");
  EXPECT_EQ(driver.setting("InputSlot", "Upper"), std::nullopt);
}

TEST(FoomaticDriver, APPDWithoutCommandLineRunsNothing) {
  EXPECT_THAT(driverIn("*cupsFilter: \"a/b 0 foomatic-rip\"\n").programs(), IsEmpty());
}

}  // namespace
}  // namespace publishing
