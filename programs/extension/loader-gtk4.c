// SPDX-License-Identifier: Apache-2.0
// A module at GTK 4's extension point for print backends, which provides none: GIO loads it, with
// GTK's own, while a program makes its first print dialog. It does nothing unless the setting
// gtk-print-backends lists "publishing", a name that GTK itself passes over.
//
// Where the folder's giomodule.cache does not list the module, GIO loads it already when the
// program starts and forgets it again. GTK's classes want a display first; the program's event loop
// runs once there is one.
#include <gio/gio.h>
#include <gtk/gtkunixprint.h>

#include "programs/extension/DialogHook.h"
#include "shells/ExtensionNames.h"

gboolean publishing_knows_gtk(void) {
  GTypeQuery dialogs;
  g_type_query(GTK_TYPE_PRINT_UNIX_DIALOG, &dialogs);
  // Their instances grow from one version to the next; nobody reaches into those.
  if (gtk_get_major_version() == 4 && dialogs.class_size == sizeof(GtkDialogClass)) return TRUE;
  g_message("Print dialogs stay without the panel, which does not know those of GTK %u.%u",
            gtk_get_major_version(), gtk_get_minor_version());
  return FALSE;
}

static gboolean lists_publishing(const gchar* backends) {
  gboolean is_listed = FALSE;
  gchar** names = g_strsplit(backends, ",", -1);
  for (gchar** name = names; *name != NULL; ++name)
    is_listed = is_listed || g_str_equal(g_strstrip(*name), PUBLISHING_BACKEND);
  g_strfreev(names);
  return is_listed;
}

gboolean publishing_wants_panel(void) {
  GtkSettings* settings = gtk_settings_get_default();
  if (settings == NULL ||
      g_object_class_find_property(G_OBJECT_GET_CLASS(settings), GTK_BACKENDS_SETTING) == NULL) {
    return FALSE;
  }
  gchar* backends = NULL;
  g_object_get(settings, GTK_BACKENDS_SETTING, &backends, NULL);
  const gboolean is_listed = backends != NULL && lists_publishing(backends);
  g_free(backends);
  return is_listed;
}

static gboolean hook_if_wanted(gpointer data) {
  (void)data;
  if (publishing_wants_panel()) (void)publishing_hook_dialogs();
  return G_SOURCE_REMOVE;
}

G_MODULE_EXPORT void g_io_module_load(GIOModule* module) {
  (void)g_type_module_use(G_TYPE_MODULE(module));  // the hooks stay
  if (gdk_display_get_default() != NULL) {
    (void)hook_if_wanted(NULL);
  } else {
    g_idle_add(hook_if_wanted, NULL);
  }
}

G_MODULE_EXPORT void g_io_module_unload(GIOModule* module) {
  (void)module;
}

// What gio-querymodules writes into giomodule.cache, for which GIO frees it.
G_MODULE_EXPORT gchar** g_io_module_query(void) {
  gchar* points[] = {"gtk-print-backend", NULL};
  return g_strdupv(points);
}
