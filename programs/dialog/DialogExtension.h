// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

// The extension that gives print dialogs the panel, for a program that wants it whether or not the
// desktop's settings say so. GTK loads it, as it does in any other program.
namespace publishing::DialogExtension {

// Tells GTK where the extension is that was installed, or built, with this program. To be called
// before gtk_init. Throws PrintError when the extension is missing.
void makeFindable();

// Adds the extension to the setting that names what print dialogs load.
void enable(GtkSettings* settings);

}  // namespace publishing::DialogExtension
