// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/DialogSettings.h"

#include <algorithm>
#include <string_view>

#include "shells/Guarded.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/dialog/PrintedPages.h"

namespace publishing {
namespace {

constexpr std::string_view kOptionPrefix = "cups-";

Sides sidesOf(GtkPrintSettings* settings) {
  switch (gtk_print_settings_get_duplex(settings)) {
    case GTK_PRINT_DUPLEX_HORIZONTAL:
      return Sides::TwoSidedLongEdge;
    case GTK_PRINT_DUPLEX_VERTICAL:
      return Sides::TwoSidedShortEdge;
    default:
      return Sides::OneSided;
  }
}

void addOption(const gchar* key, const gchar* value, gpointer job) {
  const std::string_view name = key;
  if (!name.starts_with(kOptionPrefix) || value == nullptr) return;
  guarded([&] {
    static_cast<DialogJob*>(job)->options.emplace(name.substr(kOptionPrefix.size()), value);
  });
}

}  // namespace

DialogJob jobOf(GtkPrintUnixDialog* dialog) {
  const GObjectPtr<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(dialog));
  DialogJob job;
  job.sides = sidesOf(settings.get());
  job.reverse = gtk_print_settings_get_reverse(settings.get()) != 0;
  const int pages = gtk_print_settings_get_number_up(settings.get());
  if (JobTicket::isLayout(pages)) job.numberUp = pages;
  gtk_print_settings_foreach(settings.get(), addOption, &job);
  job.copies = std::max(1, gtk_print_settings_get_n_copies(settings.get()));
  job.collated = gtk_print_settings_get_collate(settings.get()) != 0;
  job.pageRanges = pageRangesOf(settings.get());
  job.pageSet = pageSetOf(settings.get());
  return job;
}

}  // namespace publishing
