// The same panel scripts on the controls in memory and on real widgets: what comes out must be the
// same, byte for byte.
#include <sstream>

#include <gtest/gtest.h>

#include "tests/tools/GtkStage.h"
#include "tests/tools/HeadlessStage.h"
#include "tests/tools/PanelScript.h"

namespace publishing {
namespace {

template <class Stage>
std::string outputOf(const std::string& commands) {
  std::istringstream input(commands);
  std::ostringstream output;
  PanelScript script([](AlertSink alerts) { return std::make_unique<Stage>(std::move(alerts)); },
                     output);
  script.run(input);
  return output.str();
}

struct Replay {
  const char* name;
  const char* commands;
};

const std::string kPrinter = "ppd " TEST_DATA "/zephrel-ps-9000.ppd\n";

class PanelReplay : public testing::TestWithParam<Replay> {};

TEST_P(PanelReplay, IsTheSameOnWidgets) {
  const std::string commands = kPrinter + GetParam().commands;
  const std::string expected = outputOf<HeadlessStage>(commands);
  EXPECT_NE(expected, "");
  EXPECT_EQ(outputOf<GtkStage>(commands), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Gtk, PanelReplay,
    testing::Values(
        Replay{"NoView", "dump\nrestore\ndump\nclick CmCheckBox\nsave\ndump\n"},
        Replay{"CoverOneSided",
               "view\nrestore\nshow\ndump\nclick CmCheckBox\ndump\nradio 1\ndump\nradio 1\n"
               "click CmFrontInside\nclick CmBackInside\nchoose CmMediaType 4\ndump\nsave\ndump\n"},
        Replay{"CoverTwoSided",
               "duplex 2\nview\nrestore\nshow\nclick CmCheckBox\nradio 1\nclick CmFrontInside\n"
               "click CmBackOutside\nchoose CmMediaType 99\nsave\ndump\nclick CmCheckBox\ndump\n"},
        Replay{"InsertAndAlert",
               "duplex 3\nview\nrestore\nshow\ntab 1\nclick PiCheckBox\ntype 5,8,x12-14\ndump\n"
               "choose PiMediaType 3\nclick PiPrintOnBack\nsave\ndump\ntype 1\nsave\ntype\nsave\n"
               "dump\ntab 0\ntab 0\ndump\nsummary\n"},
        Replay{"ForbiddenTrays",
               "mark MediaType Transparency\nview\nrestore\nshow\nclick CmCheckBox\n"
               "choose CmMediaType 6\ndump\nchoose CmMediaType 8\ndump\n"},
        Replay{"ReverseAndLayout",
               "view\nset VtCoverModeState On\nset VtCmIndex 3\nset VtCoverModeValue 5\n"
               "set VtCovermodeRadioButtonState 2\nset VtPageinsertState On\n"
               "set VtPageinsertNums 3,5,\nset VtPiIndex 99\nrestore\nshow\ndump\n"
               "set OutputOrder Reverse\nshow\ndump\nclick CmCheckBox\ndump\nunset OutputOrder\n"
               "set com.apple.print.PrintSettings.PMLayoutNUp 1\nshow\ndump\n"},
        Replay{"HostileSettings",
               "set VtPageinsertState On\nset VtPageinsertNums \xff\xfe\t_&<b>\n"
               "set VtCmIndex -7\nset VtPiIndex x\nset VtCoverModeState On\n"
               "set VtCovermodeRadioButtonState 9\nview\nrestore\nshow\ndump\nsave\ndump\n"},
        Replay{"WithdrawnFeature",
               "view\nshow\nclick CmCheckBox\nclick TiCheckBox\ndump\nduplex 2\ntab 1\ndump\n"},
        Replay{"NoPrinter", "ppd none\nview\nshow\nclick PiCheckBox\ndump\n"}),
    [](const auto& replay) { return replay.param.name; });

}  // namespace
}  // namespace publishing
