// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

#include "sheets/SheetPicture.h"

namespace publishing {

// Paints the shapes of a picture in the widget's font; captions in the colour of its texts. With a
// theme of high contrast everything is black on white, and papers differ by their patterns alone.
// `context` is scaled to the picture's units.
void paintSheets(cairo_t* context, GtkWidget* widget, const SheetPicture& picture);

}  // namespace publishing
