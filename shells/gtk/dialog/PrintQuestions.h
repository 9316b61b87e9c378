// SPDX-License-Identifier: Apache-2.0
// What the user is asked before a job is printed, and told. Modal; while a question is open the
// program may destroy the parent, which answers it with going back.
#pragma once

#include <string>
#include <vector>

#include <gtk/gtk.h>

#include "printing/ppd/PPDConflicts.h"

namespace publishing {

// Tells the user which choices the printer cannot combine, naming both sides of each, and asks
// whether to go back or to print all the same. True for printing; going back is the default.
bool insistsOnConflicts(GtkWindow* parent, const std::vector<Conflict>& conflicts);

// Tells the user what of the remembered covers and inserts the job cannot have, and asks whether to
// print without it, which is the default, or to go back.
bool printsWithout(GtkWindow* parent, const std::string& losses);

// Says what went wrong.
void tellProblem(GtkWindow* parent, const std::string& problem);

}  // namespace publishing
