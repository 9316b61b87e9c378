// SPDX-License-Identifier: Apache-2.0
// The print backend "publishing", which is no backend: GTK loads it where its setting
// gtk-print-backends names it, while a program makes its print dialog. That is when it hooks the
// class of print dialogs; each dialog then gets the panel as soon as it is constructed, before its
// program can connect to it. The panel itself is in a library of its own, which is opened for the
// first dialog: plain C here costs nothing in programs that only look for printers.
//
// Everything here runs on the thread of the user interface.
#include <gmodule.h>
#include <gtk/gtkunixprint.h>

#include "shells/ExtensionNames.h"

#define PANEL_LIBRARY "libpublishing-panel.so"
#define PANEL_ENTRY "publishing_panel_attach"

typedef void (*Attach)(GtkPrintUnixDialog* dialog);

// What GTK looks for in a print backend; it declares them nowhere.
G_MODULE_EXPORT void pb_module_init(GTypeModule* module);
G_MODULE_EXPORT void pb_module_exit(void);
G_MODULE_EXPORT gpointer pb_module_create(void);
G_MODULE_EXPORT const gchar* g_module_check_init(GModule* module);

static gchar* folder;  // where this library and the panel's are
static void (*constructed_before)(GObject* dialog);
static gboolean is_asked;  // GTK asked for a backend for the present dialog

static Attach open_panel(void) {
  Attach attach = NULL;
  gchar* file = g_build_filename(folder, PANEL_LIBRARY, NULL);
  GModule* panel = g_module_open(file, G_MODULE_BIND_LAZY | G_MODULE_BIND_LOCAL);
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
  if (is_asked) attach_panel(GTK_PRINT_UNIX_DIALOG(dialog));
  is_asked = FALSE;
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

// Whether this GTK is the one that the extension knows.
static gboolean knows_gtk(void) {
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

static gboolean hook_dialogs(void) {
  if (is_switched_off() || !knows_gtk()) return FALSE;
  const GObjectClass* dialogs = g_type_class_ref(GTK_TYPE_PRINT_UNIX_DIALOG);  // kept for good
  constructed_before = dialogs->constructed;
  hook(GTK_TYPE_PRINT_UNIX_DIALOG);
  return TRUE;
}

// GTK closes a backend that makes nothing, but the hooks stay.
const gchar* g_module_check_init(GModule* module) {
  g_module_make_resident(module);
  folder = g_path_get_dirname(g_module_name(module));
  return NULL;
}

void pb_module_init(GTypeModule* module) {
  (void)module;
}

void pb_module_exit(void) {}

gpointer pb_module_create(void) {
  static gboolean is_decided = FALSE;
  static gboolean is_hooked = FALSE;
  if (!is_decided) is_hooked = hook_dialogs();
  is_decided = TRUE;
  is_asked = is_hooked;
  return NULL;
}
