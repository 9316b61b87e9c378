// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nlohmann/json.hpp>

#include "printing/PrintError.h"
#include "programs/terminal/ExitStatus.h"

namespace publishing {

// {"kind": "refused" | "usage" | "trouble", "message": "..."}, the value of "error" in what --json
// writes about a failure.
nlohmann::json failureAsJson(const PrintError& error);

// Tells the failure on standard error, and with `json` as {"error": ...} on standard output too.
// Answers the exit status.
ExitStatus reportFailure(const PrintError& error, bool json);

}  // namespace publishing
