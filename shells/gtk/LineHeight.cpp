// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/LineHeight.h"

#include <string>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

int heightOfLines(GtkWidget* widget, int lines) {
  const std::string text(static_cast<std::size_t>(lines - 1), '\n');
  const GObjectPtr<PangoLayout> layout(gtk_widget_create_pango_layout(widget, text.c_str()));
  int height = 0;
  pango_layout_get_pixel_size(layout.get(), nullptr, &height);
  return height;
}

}  // namespace publishing
