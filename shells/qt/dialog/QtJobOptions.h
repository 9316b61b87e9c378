// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPrinter>

#include "printing/JobTicket.h"

namespace publishing {

// Puts options among those that Qt sends with the printer's jobs, in place of its own of the same
// names, and takes out the panel's keys (kFeatures) that are not among them. Options without a
// value are left out: programs that hand Qt's options to `lp -o` would end there. To be called when
// the dialog has set the printer up, which makes the options anew.
void giveJobOptions(QPrinter& printer, const JobTicket::Options& options);

}  // namespace publishing
