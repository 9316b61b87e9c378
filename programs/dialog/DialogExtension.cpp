#include "programs/dialog/DialogExtension.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing::DialogExtension {
namespace {

constexpr const char* kName = "publishing";
constexpr const char* kFile = "libprintbackend-publishing.so";
constexpr const char* kSetting = "gtk-print-backends";
constexpr const char* kSearchPath = "GTK_PATH";

// Both the build folder and an installation have it beside the programs' folder.
std::filesystem::path printBackends() {
  const auto own = std::filesystem::read_symlink("/proc/self/exe");
  return (own.parent_path() / PUBLISHING_PRINTBACKENDS_DIR).lexically_normal();
}

bool names(const std::string& list) {
  return ("," + list + ",").find(std::string(",") + kName + ",") != std::string::npos;
}

}  // namespace

void makeFindable() {
  const std::filesystem::path folder = printBackends();
  if (!std::filesystem::exists(folder / kFile)) {
    throw PrintError(PrintError::Kind::Trouble,
                     translated("The print dialog's extension %s is missing. Install publishing "
                                "again, or use: publishing print FILE",
                                (folder / kFile).string()));
  }
  // GTK itself appends its version and "printbackends".
  std::string path = folder.parent_path().parent_path().string();
  if (const char* others = std::getenv(kSearchPath)) path += std::string(":") + others;
  setenv(kSearchPath, path.c_str(), 1);
}

void enable(GtkSettings* settings) {
  gchar* value = nullptr;
  g_object_get(settings, kSetting, &value, nullptr);
  const std::string backends = value != nullptr ? value : "";
  g_free(value);
  if (names(backends)) return;
  g_object_set(settings, kSetting, (backends + "," + kName).c_str(), nullptr);
}

}  // namespace publishing::DialogExtension
