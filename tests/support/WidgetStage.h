// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "tests/support/PanelStage.h"

namespace publishing {

// A stage on the real widgets of the toolkit that the test program is linked with.
std::unique_ptr<PanelStage> makeWidgetStage(AlertSink alerts);

}  // namespace publishing
