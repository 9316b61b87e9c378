// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtk/gtk.h>

namespace publishing {

// How high that many lines, 1 or more, are in the widget's font, in pixels.
int heightOfLines(GtkWidget* widget, int lines);

}  // namespace publishing
