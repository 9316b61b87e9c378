// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <gtk/gtk.h>

namespace publishing {

// Draws what the window shows into a PNG file, once the theme's animations are over. Throws
// std::runtime_error when the file cannot be written.
void drawWindow(GtkWindow* window, const std::string& file);

}  // namespace publishing
