// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include <gtk/gtk.h>

#include "printing/ppd/PPDDocument.h"

namespace publishing {

// Tells the user which choices the printer cannot combine, naming both sides of each, and asks
// whether to go back or to print all the same. True for printing; going back is the default.
bool insistsOnConflicts(GtkWindow* parent, const std::vector<Conflict>& conflicts);

}  // namespace publishing
