// SPDX-License-Identifier: Apache-2.0
// A gtkmm program with the print dialog; it knows nothing of the panel. The binding makes a
// subclass of the dialog before it makes the first one:
//   gtkmm-print FILE
#include <gtk/gtkunixprint.h>
#include <gtkmm/main.h>
#include <gtkmm/printunixdialog.h>

namespace {

void sent(GtkPrintJob* job, gpointer, const GError*) {
  g_object_unref(job);
  Gtk::Main::quit();
}

// With the toolkit's own functions, because those of the binding release a printer too much.
void sendJob(GtkPrintUnixDialog* dialog, const char* file) {
  GtkPrintSettings* settings = gtk_print_unix_dialog_get_settings(dialog);
  GtkPrintJob* job =
      gtk_print_job_new("Stranger", gtk_print_unix_dialog_get_selected_printer(dialog), settings,
                        gtk_print_unix_dialog_get_page_setup(dialog));
  g_object_unref(settings);
  gtk_print_job_set_source_file(job, file, nullptr);
  gtk_print_job_send(job, sent, nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  const Gtk::Main kit(argc, argv);
  if (argc != 2) return 2;
  Gtk::PrintUnixDialog dialog("Stranger");
  dialog.set_manual_capabilities(Gtk::PRINT_CAPABILITY_GENERATE_PDF |
                                 Gtk::PRINT_CAPABILITY_GENERATE_PS);
  dialog.signal_response().connect([&](int response) {
    dialog.hide();
    if (response == Gtk::RESPONSE_OK) {
      sendJob(dialog.gobj(), argv[1]);
    } else {
      Gtk::Main::quit();
    }
  });
  dialog.show();
  Gtk::Main::run();
  return 0;
}
