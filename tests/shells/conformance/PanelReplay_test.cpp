// SPDX-License-Identifier: Apache-2.0
// The same panel scripts on the controls in memory and on real widgets: what comes out must be the
// same, byte for byte. Linked by the tests of every shell of widgets.
#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/GoldenScript.h"
#include "tests/support/HeadlessStage.h"
#include "tests/support/WidgetStage.h"

namespace publishing {
namespace {

std::unique_ptr<PanelStage> makeHeadlessStage(AlertSink alerts) {
  return std::make_unique<HeadlessStage>(std::move(alerts));
}

class PanelReplay : public testing::TestWithParam<std::string> {};

TEST_P(PanelReplay, WritesItsGoldenOutputOnWidgets) {
  EXPECT_EQ(runGoldenScript(GetParam(), makeWidgetStage), goldenOutput(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Widgets, PanelReplay, testing::ValuesIn(goldenScriptNames()),
                         [](const auto& script) {
                           std::string name = script.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

// Bytes that no widget can hold come back from it all the same.
TEST(PanelReplayOnWidgets, SettingsThatAreNoTextComeBack) {
  const std::string commands = "ppd " TEST_DATA
                               "/zephrel-ps-9000.ppd\n"
                               "set VtPageinsertState On\nset VtPageinsertNums \xff\xfe\t_&<b>\n"
                               "view\nrestore\nshow\ndump\nsave\ntype 5\nsave\ndump\n";
  const auto outputOn = [&commands](const PanelScript::StageFactory& makeStage) {
    std::istringstream input(commands);
    std::ostringstream output;
    PanelScript(makeStage, output).run(input);
    return output.str();
  };
  EXPECT_EQ(outputOn(makeWidgetStage), outputOn(makeHeadlessStage));
}

}  // namespace
}  // namespace publishing
