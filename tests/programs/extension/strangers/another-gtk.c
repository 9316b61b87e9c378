// SPDX-License-Identifier: Apache-2.0
// Loaded before GTK (LD_PRELOAD), makes it look like another one:
//   ANOTHER_GTK_MINOR=N     its version is 3.N
//   ANOTHER_GTK_LACKS=NAME  it has no function NAME for those who look it up
#include <dlfcn.h>
#include <gmodule.h>
#include <stdlib.h>
#include <string.h>

guint gtk_get_minor_version(void);

guint gtk_get_minor_version(void) {
  const char* minor = getenv("ANOTHER_GTK_MINOR");
  return minor != NULL ? (guint)atoi(minor) : 24;
}

gboolean g_module_symbol(GModule* module, const gchar* name, gpointer* symbol) {
  const char* missing = getenv("ANOTHER_GTK_LACKS");
  if (missing != NULL && strcmp(missing, name) == 0) {
    *symbol = NULL;
    return FALSE;
  }
  gboolean (*real)(GModule*, const gchar*, gpointer*) = NULL;
  *(void**)&real = dlsym(RTLD_NEXT, "g_module_symbol");
  return real(module, name, symbol);
}
