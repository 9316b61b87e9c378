// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/Conformance.h"
#include "tests/support/WidgetStage.h"

namespace publishing {

INSTANTIATE_TEST_SUITE_P(Widgets, ShellConformance, testing::Values(Shell{makeWidgetStage}));

// Such a shell has no print settings of its own.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(PrintSettingsConformance);

}  // namespace publishing
