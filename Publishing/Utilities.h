// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace publishing {

// Whether the system hands out the PPD and takes PPD choices through the host's callback object
// (10.5 and later) rather than through print tickets. Every system that this is built for does.
bool RunningOn105OrLater();

}  // namespace publishing
