// SPDX-License-Identifier: Apache-2.0
#include "programs/extension/DialogHook.h"

#include <dlfcn.h>
#include <gmodule.h>
#include <gtk/gtkunixprint.h>

#include "shells/ExtensionNames.h"

#define PANEL_ENTRY "publishing_panel_attach"

typedef void (*Attach)(GtkPrintUnixDialog* dialog);

static void (*constructed_before)(GObject* dialog);

static gchar* panel_file(void) {
  Dl_info own = {NULL, NULL, NULL, NULL};
  if (dladdr(&constructed_before, &own) == 0 || own.dli_fname == NULL) return NULL;
  gchar* folder = g_path_get_dirname(own.dli_fname);
  gchar* file = g_build_filename(folder, PANEL_LIBRARY, NULL);
  g_free(folder);
  return file;
}

static Attach open_panel(void) {
  Attach attach = NULL;
  gchar* file = panel_file();
  GModule* panel =
      g_module_open(file != NULL ? file : PANEL_LIBRARY, G_MODULE_BIND_LAZY | G_MODULE_BIND_LOCAL);
  if (panel == NULL || !g_module_symbol(panel, PANEL_ENTRY, (gpointer*)&attach)) {
    g_message("Print dialogs stay without the panel; install it again: %s", g_module_error());
  } else {
    g_module_make_resident(panel);
  }
  g_free(file);
  return attach;
}

static void attach_panel(GtkPrintUnixDialog* dialog) {
  static gboolean is_opened = FALSE;
  static Attach attach = NULL;
  if (!is_opened) attach = open_panel();
  is_opened = TRUE;
  if (attach != NULL) attach(dialog);
}

static void constructed(GObject* dialog) {
  constructed_before(dialog);
  // No longer after somebody took the extension out of the setting.
  if (publishing_wants_panel()) attach_panel(GTK_PRINT_UNIX_DIALOG(dialog));
}

// Subclasses that exist already, as a language binding makes them, have a copy of the function.
static void hook(GType type) {
  GObjectClass* dialogs = g_type_class_peek(type);
  if (dialogs == NULL) return;
  if (dialogs->constructed == constructed_before) dialogs->constructed = constructed;
  GType* subclasses = g_type_children(type, NULL);
  for (const GType* subclass = subclasses; *subclass != 0; ++subclass)
    hook(*subclass);
  g_free(subclasses);
}

static gboolean is_switched_off(void) {
  const gchar* wish = g_getenv(PUBLISHING_SWITCH);
  return g_strcmp0(wish, "0") == 0 || g_strcmp0(wish, "off") == 0;
}

gboolean publishing_hook_dialogs(void) {
  if (is_switched_off() || !publishing_knows_gtk()) return FALSE;
  const GObjectClass* dialogs = g_type_class_ref(GTK_TYPE_PRINT_UNIX_DIALOG);  // kept for good
  constructed_before = dialogs->constructed;
  hook(GTK_TYPE_PRINT_UNIX_DIALOG);
  return TRUE;
}
