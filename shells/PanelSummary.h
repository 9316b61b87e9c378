// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Publishing/PublishingSettings.h"

namespace publishing {

// Which features are on, in the user's language and with `separator` between them: the covers
// first, then the inserts. The panel's own summary is a map with "On" in English.
std::string summaryOf(const PublishingSettings& state, const std::string& separator);

}  // namespace publishing
