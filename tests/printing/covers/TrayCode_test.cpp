// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/TrayCode.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

constexpr const char* kPipe =
    R"(&&
 | perl -p -e &quot;s/\xf8\x25\xc0[\x00\x01]\xf8\x26/\xf8\x25\xc0\x15\xf8\x26/g&quot;)";
constexpr const char* kShortPipe =
    R"( | sed &quot;s/\xf8\x25\xc0[\x00\x01]\xf8/\xf8\x25\xc0\x07\xf8/g&quot;)";

std::optional<std::string> codeFor(const std::string& device, const std::string& setting) {
  const std::string ppd = "*FoomaticRIPCommandLine: \"gs -sDEVICE=" + device +
                          " %A\"\n*FoomaticRIPOptionSetting InputSlot=Tray: \"" + setting + "\"\n";
  return trayCode(FoomaticDriver(statementsOf(ppd)), "Tray");
}

std::string position(int number) {
  return "<</MediaPosition " + std::to_string(number) + ">>setpagedevice";
}

TEST(TrayCode, IsTheDriversOwnNumber) {
  const struct {
    const char* setting;
    int number;
  } table[] = {
      {" -dMediaPosition=4", 4},
      {"-dMediaPosition=-1 ", -1},
      {" -dMediaPosition=12", 12},
      {kPipe, 0x15},
      {kShortPipe, 7},
  };
  for (const auto& row : table)
    EXPECT_EQ(codeFor("pxlmono", row.setting), position(row.number)) << row.setting;
}

TEST(TrayCode, ATrayWithoutWordsIsTheJobsOwn) {
  EXPECT_EQ(codeFor("pxlmono", ""), position(1));
  EXPECT_EQ(codeFor("pxlmono", " "), codeOfDefaultTray());
}

TEST(TrayCode, TrayZeroOfPCLWouldKeepTheTrayOfThePageBefore) {
  for (const char* device :
       {"ljet2p", "ljet3", "ljet3d", "ljet4", "ljet4d", "ljetplus", "laserjet"})
    EXPECT_EQ(codeFor(device, " -dMediaPosition=0"), position(1)) << device;
  for (const char* device : {"pxlmono", "pxlcolor", "pcl3"})
    EXPECT_EQ(codeFor(device, " -dMediaPosition=0"), position(0)) << device;
}

TEST(TrayCode, NothingButKnownWordsIsTakenForATray) {
  for (
      const char* setting :
      {" -dCasset=2", "-dMediaPosition=", "-dMediaPosition=4x", "-dMediaPosition=4 -dOther",
       "-dMediaPosition=99999999999", "-dMediaPosition=4) quit", " | perl -p -e &quot;s/a/b/&quot;",
       R"( | perl -p -e &quot;s/\xf8\x25\xc0[\x00\x01]\xf8\x26/\xf8\x25\xc0\x04\xf8\x26/g&quot; ; x)",
       R"( | perl -p -e &quot;s/\xf8\x25\xc0[\x00\x01]\xf8\x26/\xf8\x25\xc0\xzz\xf8\x26/g&quot;)"}) {
    EXPECT_EQ(codeFor("pxlmono", setting), std::nullopt) << setting;
  }
}

TEST(TrayCode, AnUnknownTrayHasNone) {
  EXPECT_EQ(trayCode(FoomaticDriver({}), "Tray"), std::nullopt);
}

}  // namespace
}  // namespace publishing
