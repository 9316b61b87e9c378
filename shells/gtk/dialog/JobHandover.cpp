// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/JobHandover.h"

#include <utility>

#include "shells/Guarded.h"

namespace publishing {
namespace {

// By the printer's name. Never destroyed: a program may print while it ends.
std::map<std::string, JobHandover::Options>& waiting() {
  static auto& options = *new std::map<std::string, JobHandover::Options>;
  return options;
}

void fill(GtkPrintJob* job) {
  const auto options = waiting().extract(gtk_printer_get_name(gtk_print_job_get_printer(job)));
  if (options.empty()) return;
  GtkPrintSettings* settings = gtk_print_job_get_settings(job);
  for (const auto& [name, value] : options.mapped())
    gtk_print_settings_set(settings, name.c_str(), value.c_str());
}

// The print backend reads the job's settings right after this state begins.
gboolean statusChanged(GSignalInvocationHint*, guint, const GValue* values, gpointer) {
  auto* job = GTK_PRINT_JOB(g_value_get_object(values));
  if (gtk_print_job_get_status(job) == GTK_PRINT_STATUS_SENDING_DATA) {
    guarded([job] { fill(job); });
  }
  return TRUE;  // stay
}

bool hook() {
  g_type_class_ref(GTK_TYPE_PRINT_JOB);  // makes the signal; kept for good
  const guint signal = g_signal_lookup("status-changed", GTK_TYPE_PRINT_JOB);
  if (signal == 0) return false;
  g_message("This GTK hides the options of its print dialogs; the panel gives its own to the job");
  return g_signal_add_emission_hook(signal, 0, statusChanged, nullptr, nullptr) != 0;
}

}  // namespace

bool JobHandover::watch() {
  static const bool hooked = hook();
  return hooked;
}

void JobHandover::give(GtkPrinter* printer, Options options) {
  waiting()[gtk_printer_get_name(printer)] = std::move(options);
}

}  // namespace publishing
