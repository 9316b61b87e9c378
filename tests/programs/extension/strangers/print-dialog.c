// SPDX-License-Identifier: Apache-2.0
// A GTK program that shows the print dialog itself and sends a job of its own; it knows nothing of
// the panel:
//   print-dialog [--times N] [--at-once N] [--forget-backends] FILE
// Shows the dialog N times, the next one with the settings of the last job, or N dialogs at once.
// --forget-backends: GTK's own print backends alone after the first dialog. Writes a line about its
// own state before it ends: locale, text domain, signals, standard streams.
#include <fcntl.h>
#include <gtk/gtkunixprint.h>
#include <libintl.h>
#include <locale.h>
#include <stdio.h>
#include <string.h>

static gint times = 1;
static gint at_once = 1;
static gboolean forget_backends = FALSE;
static gchar** files = NULL;

static GtkPrintSettings* last = NULL;  // of the last job
static gint opened = 0;
static gint open_now = 0;
static gboolean is_failed = FALSE;

static void open_dialog(void);

static void finish_one(void) {
  --open_now;
  if (opened < times) {
    open_dialog();
  } else if (open_now == 0) {
    gtk_main_quit();
  }
}

static void sent(GtkPrintJob* job, gpointer data, const GError* error) {
  (void)data;
  if (error != NULL) g_printerr("print-dialog: %s\n", error->message);
  is_failed = is_failed || error != NULL;
  g_object_unref(job);
  finish_one();
}

static void send_job(GtkPrintUnixDialog* dialog) {
  g_clear_object(&last);
  last = gtk_print_unix_dialog_get_settings(dialog);
  GtkPrintJob* job =
      gtk_print_job_new("Stranger", gtk_print_unix_dialog_get_selected_printer(dialog), last,
                        gtk_print_unix_dialog_get_page_setup(dialog));
  GError* error = NULL;
  if (!gtk_print_job_set_source_file(job, files[0], &error)) g_error("%s", error->message);
  gtk_print_job_send(job, sent, NULL, NULL);
}

static void answered(GtkDialog* dialog, gint response, gpointer data) {
  (void)data;
  if (response == GTK_RESPONSE_OK) {
    send_job(GTK_PRINT_UNIX_DIALOG(dialog));
  } else {
    finish_one();
  }
  gtk_widget_destroy(GTK_WIDGET(dialog));
}

static void open_dialog(void) {
  ++opened;
  ++open_now;
  if (forget_backends && opened > 1) {
    g_object_set(gtk_settings_get_default(), "gtk-print-backends", "file,cups", NULL);
  }
  gchar* title = g_strdup_printf("Stranger %d", opened);
  GtkWidget* dialog = gtk_print_unix_dialog_new(title, NULL);
  g_free(title);
  if (last != NULL) gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), last);
  gtk_print_unix_dialog_set_manual_capabilities(GTK_PRINT_UNIX_DIALOG(dialog),
                                                GTK_PRINT_CAPABILITY_GENERATE_PDF |
                                                    GTK_PRINT_CAPABILITY_GENERATE_PS |
                                                    GTK_PRINT_CAPABILITY_COPIES);
  g_signal_connect(dialog, "response", G_CALLBACK(answered), NULL);
  gtk_widget_show(dialog);
}

// Lines of the kernel's account of this process.
static void write_signals(void) {
  gchar* status = NULL;
  if (!g_file_get_contents("/proc/self/status", &status, NULL, NULL)) return;
  gchar** lines = g_strsplit(status, "\n", -1);
  for (gchar** line = lines; *line != NULL; ++line) {
    if (g_str_has_prefix(*line, "SigBlk") || g_str_has_prefix(*line, "SigIgn") ||
        g_str_has_prefix(*line, "SigCgt")) {
      printf(" %s", *line);
    }
  }
  g_strfreev(lines);
  g_free(status);
}

static void write_state(void) {
  printf("state: %s %s", setlocale(LC_ALL, NULL), textdomain(NULL));
  write_signals();
  for (int stream = 0; stream < 3; ++stream)
    printf(" %x", (unsigned)fcntl(stream, F_GETFL));
  printf("\n");
}

int main(int argc, char** argv) {
  const GOptionEntry options[] = {
      {"times", 0, 0, G_OPTION_ARG_INT, &times, "Show the dialog N times", "N"},
      {"at-once", 0, 0, G_OPTION_ARG_INT, &at_once, "Show N dialogs at once", "N"},
      {"forget-backends", 0, 0, G_OPTION_ARG_NONE, &forget_backends, "Clear the setting", NULL},
      {G_OPTION_REMAINING, 0, 0, G_OPTION_ARG_FILENAME_ARRAY, &files, "Document", "FILE"},
      {NULL, 0, 0, G_OPTION_ARG_NONE, NULL, NULL, NULL}};
  GError* error = NULL;
  if (!gtk_init_with_args(&argc, &argv, NULL, options, NULL, &error) || files == NULL) {
    g_printerr("print-dialog: %s\n", error != NULL ? error->message : "no FILE");
    return 2;
  }
  for (gint count = 0; count < at_once; ++count)
    open_dialog();
  gtk_main();
  write_state();
  g_clear_object(&last);
  g_strfreev(files);
  return is_failed ? 1 : 0;
}
