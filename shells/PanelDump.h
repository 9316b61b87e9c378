// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nlohmann/json.hpp>

#include "Publishing/PublishingPDE.h"

namespace publishing {

// The state of the panel's controls by outlet name, of its tabs by label; null before the view is
// loaded. Read through the platform interfaces, so that every shell dumps alike.
nlohmann::json dumpControls(PublishingPDE& panel);

// The state fields by name; a text that is not there is null.
nlohmann::json dumpFields(const PublishingSettings& state);

// One line of JSON with sorted keys. Bytes that are not UTF-8 are replaced by U+FFFD.
std::string jsonLine(const nlohmann::json& json);

}  // namespace publishing
