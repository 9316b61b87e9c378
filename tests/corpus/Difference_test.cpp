// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/Difference.h"

#include <gtest/gtest.h>

namespace publishing::corpus {
namespace {

const std::vector<TrayConstraint> kConstraints{
    {{"InputSlot", "M"}, {"Duplex", ""}},         {{"InputSlot", "M"}, {"Stapler", "Off"}},
    {{"InputSlot", ""}, {"Finisher", "Booklet"}}, {{"InputSlot", "M"}, {"PageSize", "A4"}},
    {{"InputSlot", "M"}, {"CustomFold", "True"}}, {{"inputslot", "M"}, {"Punch", "On"}},
    {{"InputSlot", "M"}, {"InputSlot", "N"}},     {{"InputSlot", "M"}, {"Mixed", ""}},
    {{"InputSlot", "M"}, {"Mixed", "Off"}},
};

struct Case {
  const char* tray;
  Side choice;
  Difference reason;
};

TEST(Difference, OfAChoiceThatOnlyThePanelMindsIsNamed) {
  for (const auto& [tray, choice, reason] : {
           Case{"M", {"Duplex", "Off"}, Difference::Off},
           Case{"M", {"Duplex", "none"}, Difference::Off},
           Case{"Off", {"Finisher", "Booklet"}, Difference::Off},
           Case{"M", {"PageSize", "A4"}, Difference::PageSize},
           Case{"M", {"InputSlot", "N"}, Difference::OwnTray},
           Case{"M", {"Duplex", "Tumble"}, Difference::Unexplained},
           Case{"M", {"Duplex", "None"}, Difference::Unexplained},
           Case{"None", {"Finisher", "Booklet"}, Difference::Unexplained},
           Case{"M", {"Stapler", "Off"}, Difference::Unexplained},
           Case{"M", {"Mixed", "Off"}, Difference::Unexplained},
           Case{"M", {"Nothing", "Known"}, Difference::Unexplained},
           Case{"N", {"PageSize", "A4"}, Difference::Unexplained},
       }) {
    EXPECT_EQ(whyOnlyPanelForbids({kConstraints, tray, "A5"}, choice), reason)
        << tray << ' ' << choice.option << ' ' << choice.choice;
  }
}

TEST(Difference, OfAPageSizeNeedsAnotherSizeSelectedThanMarked) {
  const Side size{"PageSize", "A4"};
  EXPECT_EQ(whyOnlyPanelForbids({kConstraints, "M", "A4"}, size), Difference::Unexplained);
  EXPECT_EQ(whyOnlyCupsForbids({kConstraints, "M", "A4"}, size, "A4"), Difference::Unexplained);
}

TEST(Difference, OfAChoiceThatOnlyLibcupsMindsIsNamed) {
  for (const auto& [tray, choice, reason] : {
           Case{"M", {"PageSize", "A4"}, Difference::PageSize},
           Case{"M", {"Fold", "Custom"}, Difference::Custom},
           Case{"M", {"Punch", "On"}, Difference::Spelling},
           Case{"M", {"Stapler", "OFF"}, Difference::Spelling},
           Case{"m", {"Stapler", "Off"}, Difference::Spelling},
           Case{"M", {"Stapler", "Off"}, Difference::Unexplained},
           Case{"M", {"Duplex", "Tumble"}, Difference::Unexplained},
           Case{"M", {"Nothing", "Known"}, Difference::Unexplained},
           Case{"N", {"PageSize", "A4"}, Difference::Unexplained},
       }) {
    EXPECT_EQ(whyOnlyCupsForbids({kConstraints, tray, "A4"}, choice, "A5"), reason)
        << tray << ' ' << choice.option << ' ' << choice.choice;
  }
}

}  // namespace
}  // namespace publishing::corpus
