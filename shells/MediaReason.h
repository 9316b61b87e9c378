// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "Publishing/PublishingPDE.h"
#include "printing/Printer.h"

namespace publishing {

// Why the panel does not offer an item of a media pop-up, for a user: "Conflicts with Media Type:
// Transparency". Empty for an item that it offers.
std::string reasonAgainstMedia(const PublishingPDE& panel, const Printer& printer,
                               const char* mediaOption, std::int64_t index);

}  // namespace publishing
