// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/Conformance.h"

namespace publishing {

TEST_P(PrintSettingsConformance, AbsentIsNotEmpty) {
  EXPECT_EQ(settings().getValue("VtCoverModeState"), std::nullopt);
  settings().setValue("VtCoverModeState", "");
  EXPECT_EQ(settings().getValue("VtCoverModeState"), "");
}

TEST_P(PrintSettingsConformance, ValueIsReplaced) {
  settings().setValue("VtPageinsertNums", "3,5,9,");
  settings().setValue("VtPageinsertNums", "7,");
  EXPECT_EQ(settings().getValue("VtPageinsertNums"), "7,");
  EXPECT_EQ(settings().getValue("vtpageinsertnums"), std::nullopt);
}

TEST_P(PrintSettingsConformance, SettingNothingRemovesTheKey) {
  settings().setValue("VtCmIndex", "2");
  settings().setValue("VtCmIndex", std::nullopt);
  settings().setValue("VtPiIndex", std::nullopt);
  EXPECT_EQ(settings().getValue("VtCmIndex"), std::nullopt);
  EXPECT_EQ(settings().getValue("VtPiIndex"), std::nullopt);
}

TEST_P(PrintSettingsConformance, DictionaryIsACopy) {
  settings().setValue("CoverMediaType", "Tray2");
  settings().setValue("OutputOrder", "Reverse");
  const auto copy = settings().copyAsDictionary();
  settings().setValue("CoverMediaType", std::nullopt);
  ASSERT_TRUE(copy);
  EXPECT_THAT(*copy, testing::IsSupersetOf(std::map<std::string, std::string>{
                         {"CoverMediaType", "Tray2"}, {"OutputOrder", "Reverse"}}));
  EXPECT_FALSE(settings().copyAsDictionary()->contains("CoverMediaType"));
}

TEST_P(PrintSettingsConformance, DuplexModeIsTheHosts) {
  for (const std::int32_t mode : {1, 2, 3}) {
    setDuplex(mode);
    EXPECT_EQ(settings().getDuplex(), mode);
  }
}

}  // namespace publishing
