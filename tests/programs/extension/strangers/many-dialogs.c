// SPDX-License-Identifier: Apache-2.0
// A GTK program that shows the print dialog N times, one after the other, looks at each of its tabs
// and presses Print, but prints nothing; it knows nothing of the panel:
//   many-dialogs N QUEUE
// For memcheck: writes for each dialog "settings KEY..." and, after it is gone, "live BYTES", the
// memory on the heap.
#include <gtk/gtkunixprint.h>
#include <stdlib.h>
#include <string.h>
#include <valgrind/memcheck.h>

#define QUIET 1000  // milliseconds, for what arrives late and for idle threads to end

static gboolean ring(gpointer is_over) {
  *(gboolean*)is_over = TRUE;
  return G_SOURCE_REMOVE;
}

static void settle(void) {
  gboolean is_over = FALSE;
  g_timeout_add(QUIET, ring, &is_over);
  while (!is_over)
    gtk_main_iteration();
}

static gboolean is_selected(GtkPrintUnixDialog* dialog, const char* queue) {
  GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog);
  return printer != NULL && strcmp(gtk_printer_get_name(printer), queue) == 0;
}

static void look_at_tabs(GtkPrintUnixDialog* dialog) {
  GtkNotebook* tabs = GTK_NOTEBOOK(
      gtk_widget_get_template_child(GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "notebook"));
  for (gint page = 0; page < gtk_notebook_get_n_pages(tabs); ++page) {
    gtk_notebook_set_current_page(tabs, page);
    settle();
  }
}

static void write_key(const gchar* key, const gchar* value, gpointer data) {
  (void)value;
  (void)data;
  g_print(" %s", key);
}

static void answered(GtkPrintUnixDialog* dialog, gint response, gpointer data) {
  (void)response;
  (void)data;
  GtkPrintSettings* settings = gtk_print_unix_dialog_get_settings(dialog);
  g_print("settings");
  gtk_print_settings_foreach(settings, write_key, NULL);
  g_print("\n");
  g_object_unref(settings);
}

static void show_dialog(const char* queue) {
  GtkWidget* widget = gtk_print_unix_dialog_new(NULL, NULL);
  GtkPrintUnixDialog* dialog = GTK_PRINT_UNIX_DIALOG(widget);
  g_signal_connect(dialog, "response", G_CALLBACK(answered), NULL);
  gtk_widget_show(widget);
  while (!is_selected(dialog, queue))
    gtk_main_iteration();
  settle();
  look_at_tabs(dialog);
  gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
  gtk_widget_destroy(widget);
  settle();
}

static void write_live_memory(void) {
  unsigned long leaked = 0;
  unsigned long dubious = 0;
  unsigned long reachable = 0;
  unsigned long suppressed = 0;
  VALGRIND_DO_QUICK_LEAK_CHECK;
  VALGRIND_COUNT_LEAKS(leaked, dubious, reachable, suppressed);
  g_print("live %lu\n", leaked + dubious + reachable + suppressed);
}

int main(int argc, char** argv) {
  gtk_init(&argc, &argv);
  if (argc != 3) {
    g_printerr("usage: many-dialogs N QUEUE\n");
    return 2;
  }
  // An idle thread keeps libcups's buffers, some 120 KiB, until it ends; let it end at once.
  g_thread_pool_set_max_unused_threads(0);
  const int times = atoi(argv[1]);
  for (int count = 0; count < times; ++count) {
    show_dialog(argv[2]);
    write_live_memory();
  }
  return 0;
}
