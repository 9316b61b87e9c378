// SPDX-License-Identifier: Apache-2.0
// A GTK program that prints pages of its own with a print operation; it knows nothing of the panel.
// Built with GTK 3 and with GTK 4:
//   print-operation [--async] [--times N]
// Shows the dialog N times, one after the other, each with the settings of the last job.
#include <stdlib.h>

#include "either-gtk.h"

#define PAGES 20

static gboolean is_async = FALSE;
static gint times = 1;

static GMainLoop* loop = NULL;
static GtkPrintSettings* last = NULL;
static gint run = 0;
static gboolean is_failed = FALSE;

static void draw_page(GtkPrintOperation* operation, GtkPrintContext* context, gint page,
                      gpointer data) {
  (void)operation;
  (void)data;
  cairo_t* cairo = gtk_print_context_get_cairo_context(context);
  cairo_rectangle(cairo, 20, 20, 20.0 * (page + 1), 100);
  cairo_fill(cairo);
}

static gboolean print_next(gpointer data);

static void done(GtkPrintOperation* operation, GtkPrintOperationResult result, gpointer data) {
  (void)data;
  is_failed = is_failed || result == GTK_PRINT_OPERATION_RESULT_ERROR;
  if (result != GTK_PRINT_OPERATION_RESULT_APPLY) return;
  g_clear_object(&last);
  last = g_object_ref(gtk_print_operation_get_print_settings(operation));
}

// An operation that runs by itself sends the pages after "done", if it is still there.
static void status_changed(GtkPrintOperation* operation, gpointer data) {
  (void)data;
  if (!gtk_print_operation_is_finished(operation)) return;
  g_object_unref(operation);
  if (run < times) {
    g_idle_add(print_next, NULL);
  } else {
    g_main_loop_quit(loop);
  }
}

static gboolean print_next(gpointer data) {
  (void)data;
  ++run;
  GtkPrintOperation* operation = gtk_print_operation_new();
  gtk_print_operation_set_n_pages(operation, PAGES);
  gtk_print_operation_set_allow_async(operation, is_async);
  gtk_print_operation_set_job_name(operation, "Stranger");
  if (last != NULL) gtk_print_operation_set_print_settings(operation, last);
  g_signal_connect(operation, "draw-page", G_CALLBACK(draw_page), NULL);
  g_signal_connect(operation, "done", G_CALLBACK(done), NULL);
  g_signal_connect(operation, "status-changed", G_CALLBACK(status_changed), NULL);
  gtk_print_operation_run(operation, GTK_PRINT_OPERATION_ACTION_PRINT_DIALOG, NULL, NULL);
  return G_SOURCE_REMOVE;
}

int main(int argc, char** argv) {
  const GOptionEntry options[] = {
      {"async", 0, 0, G_OPTION_ARG_NONE, &is_async, "Let the operation run by itself", NULL},
      {"times", 0, 0, G_OPTION_ARG_INT, &times, "Show the dialog N times", "N"},
      {NULL, 0, 0, G_OPTION_ARG_NONE, NULL, NULL, NULL}};
  g_strfreev(parse_options(argc, argv, options));
  init_toolkit();
  loop = g_main_loop_new(NULL, FALSE);
  g_idle_add(print_next, NULL);
  g_main_loop_run(loop);
  g_main_loop_unref(loop);
  g_clear_object(&last);
  return is_failed ? 1 : 0;
}
