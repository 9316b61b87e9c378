// SPDX-License-Identifier: Apache-2.0
// The print backend "publishing" of GTK 3, which is no backend: GTK loads it where its setting
// gtk-print-backends names it, while a program makes its print dialog.
#include <gmodule.h>
#include <gtk/gtkunixprint.h>

#include "programs/extension/DialogHook.h"

// What GTK looks for in a print backend; it declares them nowhere.
G_MODULE_EXPORT void pb_module_init(GTypeModule* module);
G_MODULE_EXPORT void pb_module_exit(void);
G_MODULE_EXPORT gpointer pb_module_create(void);
G_MODULE_EXPORT const gchar* g_module_check_init(GModule* module);

static gboolean is_asked;  // GTK asked for a backend for the present dialog

gboolean publishing_knows_gtk(void) {
  GTypeQuery dialogs;
  g_type_query(GTK_TYPE_PRINT_UNIX_DIALOG, &dialogs);
  if (gtk_get_major_version() == 3 && gtk_get_minor_version() == 24 &&
      dialogs.class_size == sizeof(GtkPrintUnixDialogClass) &&
      dialogs.instance_size == sizeof(GtkPrintUnixDialog)) {
    return TRUE;
  }
  g_message("Print dialogs stay without the panel, which knows those of GTK 3.24 and not of %u.%u",
            gtk_get_major_version(), gtk_get_minor_version());
  return FALSE;
}

gboolean publishing_wants_panel(void) {
  const gboolean was_asked = is_asked;
  is_asked = FALSE;
  return was_asked;
}

// GTK closes a backend that makes nothing, but the hooks stay.
const gchar* g_module_check_init(GModule* module) {
  g_module_make_resident(module);
  return NULL;
}

void pb_module_init(GTypeModule* module) {
  (void)module;
}

void pb_module_exit(void) {}

gpointer pb_module_create(void) {
  static gboolean is_decided = FALSE;
  static gboolean is_hooked = FALSE;
  if (!is_decided) is_hooked = publishing_hook_dialogs();
  is_decided = TRUE;
  is_asked = is_hooked;
  return NULL;
}
