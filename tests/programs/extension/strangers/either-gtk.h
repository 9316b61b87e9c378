// SPDX-License-Identifier: Apache-2.0
// What programs that are built with GTK 3 and with GTK 4 do in different ways.
#pragma once

#include <gtk/gtkunixprint.h>

#if GTK_MAJOR_VERSION == 3
static inline void init_toolkit(void) {
  gtk_init(NULL, NULL);
}
static inline void destroy_window(GtkWidget* window) {
  gtk_widget_destroy(window);
}
#else
static inline void init_toolkit(void) {
  gtk_init();
}
static inline void destroy_window(GtkWidget* window) {
  gtk_window_destroy(GTK_WINDOW(window));
}
#endif

// The options of a program, and what is left; ends it with a message when they are wrong.
static inline gchar** parse_options(int argc, char** argv, const GOptionEntry* options) {
  gchar** files = NULL;
  const GOptionEntry rest[] = {
      {G_OPTION_REMAINING, 0, 0, G_OPTION_ARG_FILENAME_ARRAY, &files, "Document", "FILE"},
      {NULL, 0, 0, G_OPTION_ARG_NONE, NULL, NULL, NULL}};
  GOptionContext* context = g_option_context_new(NULL);
  g_option_context_add_main_entries(context, options, NULL);
  g_option_context_add_main_entries(context, rest, NULL);
  GError* error = NULL;
  if (!g_option_context_parse(context, &argc, &argv, &error)) {
    g_printerr("%s: %s\n", g_get_prgname(), error->message);
    exit(2);
  }
  g_option_context_free(context);
  return files;
}
