// SPDX-License-Identifier: Apache-2.0
// extension-bench QUEUE OTHER_QUEUE: what one program pays for its print dialog, with or without
// the extension as GTK's settings say. Knows nothing of the panel. Built with GTK 3 and with GTK 4,
// run by bench/extension-bench-run. Writes for the program's first dialog and for the printer's
// changes, each until nothing happens any more:
//   drawn MS     from making the first dialog until it is drawn with its printer selected
//   first MS     processor time of the user interface's thread for the first dialog
//   change MS    the same for the choice of another printer, median
//   memory KIB   memory of the process that is its own, after the first dialog
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include "tests/programs/extension/strangers/either-gtk.h"

#define CHANGES 5
#define QUIET 200  // milliseconds without an event

static gboolean is_drawn = FALSE;

static double milliseconds(clockid_t clock) {
  struct timespec time;
  clock_gettime(clock, &time);
  return (double)time.tv_sec * 1e3 + (double)time.tv_nsec / 1e6;
}

static gboolean ring(gpointer is_over) {
  *(gboolean*)is_over = TRUE;
  return G_SOURCE_REMOVE;
}

static gboolean is_selected(GtkPrintUnixDialog* dialog, const char* queue) {
  GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog);
  return printer != NULL && strcmp(gtk_printer_get_name(printer), queue) == 0;
}

static void settle(void) {
  gboolean is_over = FALSE;
  g_timeout_add(QUIET, ring, &is_over);
  while (!is_over)
    g_main_context_iteration(NULL, TRUE);
}

static void wait_for(GtkPrintUnixDialog* dialog, const char* queue) {
  while (!is_drawn || !is_selected(dialog, queue))
    g_main_context_iteration(NULL, TRUE);
}

static gboolean is_called(gpointer printer, const char* queue) {
  return GTK_IS_PRINTER(printer) && strcmp(gtk_printer_get_name(GTK_PRINTER(printer)), queue) == 0;
}

#if GTK_MAJOR_VERSION == 3
#define PRINTER_COLUMN 5  // of the list in GTK 3.24

static gboolean drawn(GtkWidget* widget, cairo_t* cairo, gpointer data) {
  (void)widget;
  (void)cairo;
  (void)data;
  is_drawn = TRUE;
  return FALSE;
}

static void hear_of_drawing(GtkWidget* dialog) {
  g_signal_connect_after(dialog, "draw", G_CALLBACK(drawn), NULL);
}

// As a click on the printer in the list.
static void choose(GtkPrintUnixDialog* dialog, const char* queue) {
  GtkTreeView* list = GTK_TREE_VIEW(gtk_widget_get_template_child(
      GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "printer_treeview"));
  GtkTreeModel* printers = gtk_tree_view_get_model(list);
  GtkTreeIter row;
  gboolean is_row = gtk_tree_model_get_iter_first(printers, &row);
  while (is_row) {
    GObject* printer = NULL;
    gtk_tree_model_get(printers, &row, PRINTER_COLUMN, &printer, -1);
    const gboolean is_wanted = is_called(printer, queue);
    g_clear_object(&printer);
    if (is_wanted) gtk_tree_selection_select_iter(gtk_tree_view_get_selection(list), &row);
    is_row = !is_wanted && gtk_tree_model_iter_next(printers, &row);
  }
}
#else
static void drawn(GdkFrameClock* clock, gpointer data) {
  (void)clock;
  (void)data;
  is_drawn = TRUE;
}

static void hear_of_drawing(GtkWidget* dialog) {
  gtk_widget_realize(dialog);
  g_signal_connect(gtk_widget_get_frame_clock(dialog), "after-paint", G_CALLBACK(drawn), NULL);
}

// As a click on the printer in the list.
static void choose(GtkPrintUnixDialog* dialog, const char* queue) {
  GtkColumnView* list = GTK_COLUMN_VIEW(gtk_widget_get_template_child(
      GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "printer_list"));
  GtkSelectionModel* printers = gtk_column_view_get_model(list);
  for (guint row = 0; row < g_list_model_get_n_items(G_LIST_MODEL(printers)); ++row) {
    gpointer printer = g_list_model_get_item(G_LIST_MODEL(printers), row);
    if (is_called(printer, queue)) gtk_selection_model_select_item(printers, row, TRUE);
    g_object_unref(printer);
  }
}
#endif

static int compare(const void* left, const void* right) {
  const double a = *(const double*)left;
  const double b = *(const double*)right;
  return a < b ? -1 : a > b;
}

static double change_printers(GtkPrintUnixDialog* dialog, char** queues) {
  double costs[CHANGES];
  for (int change = 0; change < CHANGES; ++change) {
    const char* queue = queues[(change + 1) % 2];
    const double start = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    choose(dialog, queue);
    wait_for(dialog, queue);
    settle();
    costs[change] = milliseconds(CLOCK_THREAD_CPUTIME_ID) - start;
  }
  qsort(costs, CHANGES, sizeof costs[0], compare);
  return costs[CHANGES / 2];
}

// Pages that no other process shares.
static long own_memory(void) {
  gchar* text = NULL;
  long sum = 0;
  if (!g_file_get_contents("/proc/self/smaps_rollup", &text, NULL, NULL)) return -1;
  const char* dirty = strstr(text, "Private_Dirty:");
  if (dirty != NULL) sum = strtol(dirty + strlen("Private_Dirty:"), NULL, 10);
  g_free(text);
  return sum;
}

int main(int argc, char** argv) {
  init_toolkit();
  if (argc != 3) {
    g_printerr("usage: extension-bench QUEUE OTHER_QUEUE\n");
    return 2;
  }
  const double start = milliseconds(CLOCK_MONOTONIC);
  const double processor = milliseconds(CLOCK_THREAD_CPUTIME_ID);
  GtkWidget* widget = gtk_print_unix_dialog_new(NULL, NULL);
  GtkPrintUnixDialog* dialog = GTK_PRINT_UNIX_DIALOG(widget);
  hear_of_drawing(widget);
  gtk_widget_show(widget);
  wait_for(dialog, argv[1]);
  printf("drawn %g\n", milliseconds(CLOCK_MONOTONIC) - start);
  settle();
  printf("first %g\n", milliseconds(CLOCK_THREAD_CPUTIME_ID) - processor);
  printf("memory %ld\n", own_memory());
  printf("change %g\n", change_printers(dialog, argv + 1));
  destroy_window(widget);
  return 0;
}
