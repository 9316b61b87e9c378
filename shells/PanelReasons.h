// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Publishing/PublishingPDE.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "shells/DialogPlaces.h"
#include "shells/HostBundle.h"
#include "shells/PanelControls.h"

namespace publishing {

// Says in the tooltip of each disabled control what it needs, and in those of the media pop-ups why
// some items are greyed out; a control that can be used has no such tooltip. `job` is the ticket
// that the panel was refreshed from.
void showReasons(HostBundle& bundle, const PanelControls& controls, const PublishingPDE& panel,
                 const Printer& printer, const JobTicket& job, const DialogPlaces& places);

}  // namespace publishing
