// SPDX-License-Identifier: Apache-2.0
// Off is off: a feature that is off has no medium. It is in no job and conflicts with nothing.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Publishing/PublishingFeatures.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "printing/ppd/PPDConflicts.h"

namespace publishing {

// Whether the panel's settings in the ticket have the feature on.
bool isOn(const PublishingFeature& feature, const JobTicket& ticket);

// The choice of the feature's option that wants nothing of the printer: the one with "PrnDef" in
// its keyword, else "None". Nothing when the PPD has neither.
std::optional<std::string> choiceWhenOff(const PublishingFeature& feature, const PPDDocument& ppd);

// To be called with a ticket in which the panel was saved. Takes the media of features that are off
// out of it; where the defaults of the PPD or of the queue (lpoptions) would bring one in, the
// ticket names choiceWhenOff instead. Then renews the printer's marks.
void takeOutMediaOff(JobTicket& ticket, Printer& printer);

// The conflicts among the marked choices but for those that are the medium of a feature that is
// off.
std::vector<Conflict> conflictsOf(const JobTicket& ticket, const PPDDocument& ppd);

}  // namespace publishing
