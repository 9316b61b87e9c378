// SPDX-License-Identifier: Apache-2.0
// Which pages of the document a print dialog asks for, in the words of the print server's options.
#pragma once

#include <string>

#include <gtk/gtkunixprint.h>

namespace publishing {

// The option page-ranges, as in "2-5,8-8,12-"; empty for all pages. The current page counts as the
// first one: GTK does not tell which it is.
std::string pageRangesOf(GtkPrintSettings* settings);

// The option page-set: "even" or "odd"; empty for both.
std::string pageSetOf(GtkPrintSettings* settings);

}  // namespace publishing
