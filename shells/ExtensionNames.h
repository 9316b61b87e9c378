/* SPDX-License-Identifier: Apache-2.0 */
/* The names by which GTK finds the extension, and those that switch it off. In C, for the loader.
 */
#pragma once

/* GTK loads a backend NAME from a library printbackend-NAME; it takes the names from its setting.
 */
#define PUBLISHING_BACKEND "publishing"
#define PUBLISHING_BACKEND_LIBRARY "libprintbackend-" PUBLISHING_BACKEND ".so"
#define GTK_BACKENDS_SETTING "gtk-print-backends"

/* A program that knows how many pages its document has says so with g_object_set_data() on the
 * dialog, in GINT_TO_POINTER(), before the panel is looked at. */
#define DOCUMENT_PAGES_KEY "publishing-document-pages"

/* The environment variable, and the entry of the file of rules in a configuration folder. */
#define PUBLISHING_SWITCH "PUBLISHING_EXTENSION"
#define PUBLISHING_RULES_FILE "publishing/dialog/rules.ini"
#define PUBLISHING_RULES_GROUP "Dialog"
#define PUBLISHING_RULES_SWITCH "Extension"
