// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/OffChoices.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

using Choices = std::vector<std::string>;

TEST(OffChoices, OfLibcupsAreNoneOffAndFalseInAnyCase) {
  for (const char* choice : {"None", "Off", "False", "NONE", "off", "fAlse"})
    EXPECT_TRUE(switchesOff(choice)) << choice;
  for (const char* choice : {"", "On", "True", "Nonesuch", "Non", "Auto", "Offset", "Unknown"})
    EXPECT_FALSE(switchesOff(choice)) << choice;
}

TEST(OffChoices, OfThePanelAreTheFirstNoneAndTheFirstFalse) {
  EXPECT_EQ(withoutOffChoices({"None", "Tray1", "False", "Off"}), (Choices{"Tray1", "Off"}));
  EXPECT_EQ(withoutOffChoices({"False", "None", "None", "False"}), (Choices{"None", "False"}));
  EXPECT_EQ(withoutOffChoices({"none", "FALSE", "Off"}), (Choices{"none", "FALSE", "Off"}));
  EXPECT_EQ(withoutOffChoices({}), Choices());
}

}  // namespace
}  // namespace publishing
