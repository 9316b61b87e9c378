// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GoldenScript.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/HeadlessStage.h"

namespace publishing {
namespace {

class GoldenScript : public testing::TestWithParam<std::string> {};

TEST_P(GoldenScript, WritesItsGoldenOutput) {
  const auto headless = [](AlertSink alerts) {
    return std::make_unique<HeadlessStage>(std::move(alerts));
  };
  EXPECT_EQ(runGoldenScript(GetParam(), headless), goldenOutput(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Headless, GoldenScript, testing::ValuesIn(goldenScriptNames()),
                         [](const auto& script) {
                           std::string name = script.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace publishing
