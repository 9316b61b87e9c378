// SPDX-License-Identifier: Apache-2.0
#include "programs/qt-settings/QtSettings.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

#include <glib.h>

#include "base/AtomicFile.h"
#include "base/GlibHandles.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "printing/PrintError.h"
#include "programs/gtk-settings/SettingsChange.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;
using Change = GtkSettingsFile::Change;

constexpr std::size_t kLargestFile = 65536;  // bytes
constexpr const char* kFile = "/environment.d/60-publishing.conf";
constexpr const char* kOwnLine =
    "# Written by \"publishing extension enable\", removed by \"publishing extension disable\".\n";

std::string settingOf(const std::string& folder) {
  return "QT_PLUGIN_PATH=" + folder + "${QT_PLUGIN_PATH:+:$QT_PLUGIN_PATH}\n";
}

std::string fileOf(const std::string& folder, int version) {
  return folder + "/printsupport/libpublishing-print" + std::to_string(version) + ".so";
}

// Nothing when there is no such file.
std::optional<std::string> readOwn(const fs::path& path) {
  TextFile file = readTextFile(path, kLargestFile);
  if (file.isMissing()) return std::nullopt;
  if (file.isRead() && file.text.starts_with(kOwnLine)) return std::move(file.text);
  throw PrintError::trouble(
      translated("%s was not written by this program. Move it away; nothing was changed.",
                 shown(path.string())));
}

}  // namespace

QtPlaces QtPlaces::here() {
  QtPlaces places;
  const char* folder = std::getenv("PUBLISHING_QT_PLUGINS");
  std::error_code unknown;
  const fs::path own = fs::read_symlink("/proc/self/exe", unknown);
  places.folder = folder != nullptr
                      ? folder
                      : (own.parent_path() / PUBLISHING_QT_DIR).lexically_normal().string();
  places.userFile = userConfigFolder() + kFile;
  places.systemFile = std::string("/etc") + kFile;
  return places;
}

std::vector<int> QtPlaces::versions() const {
  std::vector<int> found;
  for (const int version : {5, 6}) {
    if (std::error_code ignored; fs::exists(fileOf(folder, version), ignored)) {
      found.push_back(version);
    }
  }
  return found;
}

std::optional<std::string> QtPlaces::faultOf(int version) const {
  const std::string check = folder + "/publishing-qt" + std::to_string(version) + "-check";
  const std::string proxy = fileOf(folder, version);
  const char* const command[] = {check.c_str(), proxy.c_str(), nullptr};
  // As in a program that does not have the panel yet.
  gchar** environment = g_environ_unsetenv(g_get_environ(), "QT_PLUGIN_PATH");
  gchar* said = nullptr;
  GError* failure = nullptr;
  gint status = 0;
  const bool ran =
      g_spawn_sync(nullptr, const_cast<gchar**>(command), environment, G_SPAWN_STDOUT_TO_DEV_NULL,
                   nullptr, nullptr, nullptr, &said, &status, &failure) != 0;
  g_strfreev(environment);
  const GlibText words(said);
  const GlibError notRun(failure);
  if (!ran) return notRun->message;
  const bool isGood = g_spawn_check_wait_status(status, &failure) != 0;
  const GlibError notGood(failure);
  if (isGood) return std::nullopt;
  return shown(said != nullptr && *said != '\0' ? said : notGood->message);
}

bool QtSettingsFile::names(const std::string& folder) const {
  const TextFile file = readTextFile(path_, kLargestFile);
  return file.isRead() && ("\n" + file.text).find("\n" + settingOf(folder)) != std::string::npos;
}

Change QtSettingsFile::enable(const std::string& folder) const {
  return changeSettings(path_, remedy_, [&](const fs::path& target) {
    const std::string text = kOwnLine + settingOf(folder);
    if (readOwn(target) == text) return Change::None;
    fs::create_directories(target.parent_path());
    replaceFile(target, text);
    return Change::Written;
  });
}

Change QtSettingsFile::disable() const {
  return changeSettings(path_, remedy_, [](const fs::path& target) {
    if (!readOwn(target)) return Change::None;
    fs::remove(target);
    std::error_code inUse;
    fs::remove(target.parent_path(), inUse);  // unless there is something else in it
    return Change::Removed;
  });
}

}  // namespace publishing
