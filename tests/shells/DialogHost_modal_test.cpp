// SPDX-License-Identifier: Apache-2.0
// What the program does to the dialog while one of the host's modal questions is open.
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

struct Event {
  const char* name;
  void (*happen)(TinyDialog& dialog, const std::string& same, const std::string& other);
};

constexpr Event kDestroyed{"Destroyed",
                           [](TinyDialog& dialog, const auto&, const auto&) { dialog.loseHost(); }};
constexpr Event kOther{"AnotherPrinter", [](TinyDialog& dialog, const auto&, const auto& other) {
                         dialog.selectPrinter(other);
                       }};
constexpr Event kSame{"SamePrinterAnew", [](TinyDialog& dialog, const auto& same, const auto&) {
                        dialog.selectPrinter(same);
                      }};
constexpr Event kNone{"NoPrinter", [](TinyDialog& dialog, const auto&, const auto&) {
                        dialog.selectPrinter(std::nullopt);
                      }};
constexpr Event kAway{"AnotherPrinterAndBack",
                      [](TinyDialog& dialog, const auto& same, const auto& other) {
                        dialog.selectPrinter(other);
                        dialog.selectPrinter(same);
                      }};

class DialogHostModalTest
    : public DialogHostTest,
      public testing::WithParamInterface<std::tuple<Event, std::optional<const char*>>> {
 protected:
  DialogHostModalTest() {
    choose(office);
    dialog.onAlert = [this] { std::get<0>(GetParam()).happen(dialog, office, studio); };
  }
};

// With a list: the alert about it. Without one: the question about a conflict, answered with yes.
TEST_P(DialogHostModalTest, NothingIsPrintedOrStoredForAPrinterThatIsNoLongerMeant) {
  const auto& list = std::get<1>(GetParam());
  if (list) {
    box("PiCheckBox").click();
    pages().type(*list);
  } else {
    box("CmCheckBox").click();
    popUp("CmMediaType").choose(4);
    dialog.change([](DialogJob& job) { job.options["InputSlot"] = "Tray2"; });
    dialog.insists = true;
  }
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.alerts, SizeIs(1));
  EXPECT_THAT(dialog.handedOver, IsEmpty());
  EXPECT_THAT(stored(office), IsEmpty());
  EXPECT_THAT(stored(studio), IsEmpty());
}

std::string nameOf(const testing::TestParamInfo<DialogHostModalTest::ParamType>& test) {
  const auto& list = std::get<1>(test.param);
  const std::map<std::string, std::string> questions = {
      {"1", "OutOfBounds"}, {"", "Empty"}, {"-", "NoNumber"}};
  return (list ? questions.at(*list) : "Conflict") + std::get<0>(test.param).name;
}

INSTANTIATE_TEST_SUITE_P(, DialogHostModalTest,
                         testing::Combine(testing::Values(kDestroyed, kOther, kSame, kNone, kAway),
                                          testing::Values(std::optional<const char*>("1"),
                                                          std::optional<const char*>(""),
                                                          std::optional<const char*>("-"),
                                                          std::optional<const char*>())),
                         nameOf);

}  // namespace
}  // namespace publishing
