// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/Conformance.h"
#include "tests/support/GtkStage.h"

namespace publishing {

INSTANTIATE_TEST_SUITE_P(Gtk, ShellConformance,
                         testing::Values(Shell{[](AlertSink alerts) -> std::unique_ptr<PanelStage> {
                           return std::make_unique<GtkStage>(std::move(alerts));
                         }}));

// The shell has no print settings of its own.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(PrintSettingsConformance);

}  // namespace publishing
