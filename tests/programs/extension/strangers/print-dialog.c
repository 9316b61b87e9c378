// SPDX-License-Identifier: Apache-2.0
// A GTK program that shows the print dialog itself and sends a job of its own; it knows nothing of
// the panel. Built with GTK 3 and with GTK 4:
//   print-dialog [--times N] [--at-once N] [--forget-backends] [--destroy] FILE
// Shows the dialog N times, the next one with the settings of the last job, or N dialogs at once.
// --forget-backends: GTK's own print backends alone after the first dialog. --destroy: the program
// destroys the dialog while a message of it waits for an answer. Writes a line about
// its own state before it ends: locale, text domain, signals, standard streams.
#include <fcntl.h>
#include <libintl.h>
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "either-gtk.h"

static gint times = 1;
static gint at_once = 1;
static gboolean forget_backends = FALSE;
static gboolean is_to_destroy = FALSE;
static gchar** files = NULL;

static GMainLoop* loop = NULL;
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
    g_main_loop_quit(loop);
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
  destroy_window(GTK_WIDGET(dialog));
}

static gboolean destroy_in_message(gpointer dialog) {
  gboolean is_message_there = FALSE;
  GList* windows = gtk_window_list_toplevels();
  for (const GList* window = windows; window != NULL; window = window->next) {
    is_message_there = is_message_there ||
                       (window->data != dialog && gtk_widget_get_mapped(GTK_WIDGET(window->data)) &&
                        gtk_window_get_modal(GTK_WINDOW(window->data)));
  }
  g_list_free(windows);
  if (!is_message_there) return G_SOURCE_CONTINUE;
  destroy_window(GTK_WIDGET(dialog));
  finish_one();
  return G_SOURCE_REMOVE;
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
  if (is_to_destroy) g_timeout_add(100, destroy_in_message, dialog);
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
      {"destroy", 0, 0, G_OPTION_ARG_NONE, &is_to_destroy, "Destroy the dialog in a message", NULL},
      {NULL, 0, 0, G_OPTION_ARG_NONE, NULL, NULL, NULL}};
  files = parse_options(argc, argv, options);
  if (files == NULL) {
    g_printerr("print-dialog: no FILE\n");
    return 2;
  }
  init_toolkit();
  loop = g_main_loop_new(NULL, FALSE);
  for (gint count = 0; count < at_once; ++count)
    open_dialog();
  g_main_loop_run(loop);
  g_main_loop_unref(loop);
  write_state();
  g_clear_object(&last);
  g_strfreev(files);
  return is_failed ? 1 : 0;
}
