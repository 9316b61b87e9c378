// SPDX-License-Identifier: Apache-2.0
// What the loaders for GTK 3 and for GTK 4 have in common: they hook the class of print dialogs, so
// that each dialog gets the panel as soon as it is constructed, before its program can connect to
// it. The panel itself is in a library of its own, which is opened
// for the first dialog (PANEL_LIBRARY is its file, from the loader's folder): plain C here costs
// nothing in programs that only look for printers.
//
// Everything here runs on the thread of the user interface.
#pragma once

#include <glib.h>

// Hooks the class and those of its subclasses that exist already. FALSE when that is not wanted:
// the extension is switched off in this program, or this GTK is not the one that it knows. Call it
// once; the hooks stay for good.
gboolean publishing_hook_dialogs(void);

// What each loader provides: whether this GTK's dialogs are those that the panel was built for,
// with a line in the log when not; and, asked for each dialog, whether it is to get the panel.
gboolean publishing_knows_gtk(void);
gboolean publishing_wants_panel(void);
