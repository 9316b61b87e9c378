// SPDX-License-Identifier: Apache-2.0
// A GTK 4 program that prints pages of its own with a print operation; it knows nothing of the
// panel. With GDK_DEBUG=portals, as in a sandbox, it asks the desktop portal to show the print
// dialog.
#include <gtk/gtk.h>

#define PAGES 20

static gboolean is_failed = FALSE;

static void draw_page(GtkPrintOperation* operation, GtkPrintContext* context, gint page,
                      gpointer data) {
  (void)operation;
  (void)data;
  cairo_t* cairo = gtk_print_context_get_cairo_context(context);
  cairo_rectangle(cairo, 20, 20, 20.0 * (page + 1), 100);
  cairo_fill(cairo);
}

static void done(GtkPrintOperation* operation, GtkPrintOperationResult result, gpointer data) {
  (void)data;
  is_failed = result == GTK_PRINT_OPERATION_RESULT_ERROR;
  if (!is_failed) return;
  GError* error = NULL;
  gtk_print_operation_get_error(operation, &error);
  g_printerr("gtk4-print: %s\n", error->message);
  g_error_free(error);
}

int main(void) {
  g_set_application_name("Stranger");
  gtk_init();
  GtkPrintOperation* operation = gtk_print_operation_new();
  gtk_print_operation_set_n_pages(operation, PAGES);
  gtk_print_operation_set_job_name(operation, "Stranger");
  g_signal_connect(operation, "draw-page", G_CALLBACK(draw_page), NULL);
  g_signal_connect(operation, "done", G_CALLBACK(done), NULL);
  gtk_print_operation_run(operation, GTK_PRINT_OPERATION_ACTION_PRINT_DIALOG, NULL, NULL);
  g_object_unref(operation);
  return is_failed ? 1 : 0;
}
