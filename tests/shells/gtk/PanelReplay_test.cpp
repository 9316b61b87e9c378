// SPDX-License-Identifier: Apache-2.0
// The same panel scripts on the controls in memory and on real widgets: what comes out must be the
// same, byte for byte.
#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/GoldenScript.h"
#include "tests/support/GtkStage.h"
#include "tests/support/HeadlessStage.h"

namespace publishing {
namespace {

template <class Stage>
std::unique_ptr<PanelStage> make(AlertSink alerts) {
  return std::make_unique<Stage>(std::move(alerts));
}

class PanelReplay : public testing::TestWithParam<std::string> {};

TEST_P(PanelReplay, WritesItsGoldenOutputOnWidgets) {
  EXPECT_EQ(runGoldenScript(GetParam(), make<GtkStage>), goldenOutput(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Gtk, PanelReplay, testing::ValuesIn(goldenScriptNames()),
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
  EXPECT_EQ(outputOn(make<GtkStage>), outputOn(make<HeadlessStage>));
}

}  // namespace
}  // namespace publishing
