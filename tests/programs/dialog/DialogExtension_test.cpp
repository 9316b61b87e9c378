// SPDX-License-Identifier: Apache-2.0
#include "programs/dialog/DialogExtension.h"

#include <string>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

std::string backendsAfterEnabling(const char* before) {
  GtkSettings* settings = gtk_settings_get_default();
  g_object_set(settings, GTK_BACKENDS_SETTING, before, nullptr);
  DialogExtension::enable(settings);
  gchar* value = nullptr;
  g_object_get(settings, GTK_BACKENDS_SETTING, &value, nullptr);
  std::string backends(value);
  g_free(value);
  return backends;
}

TEST(DialogExtension, IsNamedOnce) {
  ASSERT_TRUE(gtk_init_check(nullptr, nullptr));
  const struct {
    const char* before;
    const char* after;
  } cases[] = {
      {"file,cups", "file,cups,publishing"},
      {"", "publishing"},
      {"file,cups,publishing", "file,cups,publishing"},
      {"file, publishing", "file, publishing"},
      {" publishing ,file", " publishing ,file"},
      {"publishing2,file", "publishing2,file,publishing"},
  };
  for (const auto& [before, after] : cases)
    EXPECT_EQ(backendsAfterEnabling(before), after);
}

}  // namespace
}  // namespace publishing
