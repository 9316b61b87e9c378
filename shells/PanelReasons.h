// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Publishing/PublishingPDE.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "shells/DialogJob.h"
#include "shells/DialogPlaces.h"
#include "shells/HostBundle.h"
#include "shells/PanelControls.h"

namespace publishing {

// Why the job that the ticket has can have neither covers nor inserts, and where that can be
// changed; empty when it can have them. `dialog` is what the dialog's own tabs say; the rest comes
// from the default options of the queue or the user.
std::string reasonAgainstFeatures(const DialogJob& dialog, const JobTicket& job,
                                  const Printer& printer, const DialogPlaces& places);

// Why no page list can be typed; empty when one can.
std::string reasonAgainstList(const PublishingPDE& panel, const std::string& against);

// Says in the tooltip of each disabled control what it needs, and in those of the media pop-ups why
// some items are greyed out; a control that can be used has no such tooltip. The field of the page
// list is left out. `against` is what reasonAgainstFeatures says.
void showReasons(HostBundle& bundle, const PanelControls& controls, const PublishingPDE& panel,
                 const Printer& printer, const std::string& against, const DialogPlaces& places);

}  // namespace publishing
