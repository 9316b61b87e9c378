// SPDX-License-Identifier: Apache-2.0
// Loaded before GTK (LD_PRELOAD), makes it look like another one:
//   ANOTHER_GTK_MAJOR=N     its version is N.something
//   ANOTHER_GTK_MINOR=N     its version is something.N
//   ANOTHER_GTK_LACKS=NAME  it has no function NAME for those who look it up
#include <dlfcn.h>
#include <gmodule.h>
#include <stdlib.h>
#include <string.h>

guint gtk_get_major_version(void);
guint gtk_get_minor_version(void);

static guint version_of(const char* variable, const char* function) {
  const char* version = getenv(variable);
  if (version != NULL) return (guint)atoi(version);
  guint (*real)(void) = NULL;
  *(void**)&real = dlsym(RTLD_NEXT, function);
  return real();
}

guint gtk_get_major_version(void) {
  return version_of("ANOTHER_GTK_MAJOR", "gtk_get_major_version");
}

guint gtk_get_minor_version(void) {
  return version_of("ANOTHER_GTK_MINOR", "gtk_get_minor_version");
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
