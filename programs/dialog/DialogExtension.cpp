// SPDX-License-Identifier: Apache-2.0
#include "programs/dialog/DialogExtension.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/gtk-settings/GtkSettingsText.h"
#include "shells/ExtensionNames.h"

namespace publishing::DialogExtension {
namespace {

constexpr const char* kSearchPath = "GTK_PATH";

// Both the build folder and an installation have it beside the programs' folder.
std::filesystem::path printBackends() {
  const auto own = std::filesystem::read_symlink("/proc/self/exe");
  return (own.parent_path() / PUBLISHING_PRINTBACKENDS_DIR).lexically_normal();
}

}  // namespace

void makeFindable() {
  const std::filesystem::path folder = printBackends();
  if (!std::filesystem::exists(folder / PUBLISHING_BACKEND_LIBRARY)) {
    throw PrintError::trouble(
        translated("The print dialog's extension %s is missing. Reinstall publishing, or use: "
                   "publishing print FILE",
                   (folder / PUBLISHING_BACKEND_LIBRARY).string()));
  }
  // GTK itself appends its version and "printbackends".
  std::string path = folder.parent_path().parent_path().string();
  if (const char* others = std::getenv(kSearchPath)) path += std::string(":") + others;
  setenv(kSearchPath, path.c_str(), 1);
}

void enable(GtkSettings* settings) {
  gchar* value = nullptr;
  g_object_get(settings, GTK_BACKENDS_SETTING, &value, nullptr);
  const std::string backends = value != nullptr ? value : "";
  g_free(value);
  if (listsPublishing(backends)) return;
  g_object_set(settings, GTK_BACKENDS_SETTING, withPublishing(backends).c_str(), nullptr);
}

}  // namespace publishing::DialogExtension
