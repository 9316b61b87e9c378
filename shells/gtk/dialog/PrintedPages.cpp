// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrintedPages.h"

namespace publishing {

std::string pageRangesOf(GtkPrintSettings* settings) {
  constexpr const char* kOnePage = "1-1";
  switch (gtk_print_settings_get_print_pages(settings)) {
    case GTK_PRINT_PAGES_CURRENT:
      return kOnePage;  // whichever it is
    case GTK_PRINT_PAGES_RANGES:
      break;
    default:
      return {};
  }
  gint count = 0;
  GtkPageRange* ranges = gtk_print_settings_get_page_ranges(settings, &count);
  std::string text;
  for (gint i = 0; i < count; ++i) {
    const std::string last = ranges[i].end < 0 ? "" : std::to_string(ranges[i].end + 1);
    text += (i == 0 ? "" : ",") + std::to_string(ranges[i].start + 1) + "-" + last;
  }
  g_free(ranges);
  return text;
}

std::string pageSetOf(GtkPrintSettings* settings) {
  switch (gtk_print_settings_get_page_set(settings)) {
    case GTK_PAGE_SET_EVEN:
      return "even";
    case GTK_PAGE_SET_ODD:
      return "odd";
    default:
      return {};
  }
}

}  // namespace publishing
