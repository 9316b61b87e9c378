// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Publishing/PublishingSettings.h"
#include "printing/JobTicket.h"

namespace publishing {

// Puts into `options` what the job would get if the panel were saved as it stands, without asking
// the user about a list of pages that is not in order: of that the pages before its fault count.
// The media are choice keywords.
void addPanelOptions(JobTicket::Options& options, const PublishingSettings& state, bool twoSided,
                     const std::string& coverMedium, const std::string& insertMedium);

}  // namespace publishing
