// SPDX-License-Identifier: Apache-2.0
#include "base/UserFolders.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <glib.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/Translation.h"

namespace publishing {
namespace {

std::optional<std::string> absolutePathIn(const char* variable) {
  const char* path = std::getenv(variable);
  if (path == nullptr || path[0] != '/') return std::nullopt;
  return path;
}

std::string homeByAccount() {
  const passwd* account = getpwuid(geteuid());
  return account != nullptr && account->pw_dir[0] == '/' ? account->pw_dir : "/";
}

constexpr uid_t kRoot = 0;

std::optional<std::string> faultOfFolder(const std::string& folder, bool mayBeRoots) {
  std::filesystem::path nearest = folder;
  struct stat information {};
  while (stat(nearest.c_str(), &information) != 0 && nearest.has_relative_path())
    nearest = nearest.parent_path();
  // As in /tmp: there everybody can make folders, and takes away nobody else's.
  const bool isSticky = (information.st_mode & S_ISVTX) != 0;
  if (isSticky && nearest != folder) return std::nullopt;
  if (information.st_uid != geteuid() && !(mayBeRoots && information.st_uid == kRoot)) {
    return translated("the folder %s belongs to another user", shown(nearest));
  }
  const bool isShared = (information.st_mode & S_IWOTH) != 0;
  if (isShared) return translated("anyone can write to the folder %s", shown(nearest));
  return std::nullopt;
}

}  // namespace

std::string userConfigFolder() {
  if (const auto folder = absolutePathIn("XDG_CONFIG_HOME")) return *folder;
  return absolutePathIn("HOME").value_or(homeByAccount()) + "/.config";
}

std::vector<std::string> systemConfigFolders() {
  const char* list = std::getenv("XDG_CONFIG_DIRS");
  std::vector<std::string> folders;
  std::istringstream paths(list != nullptr && list[0] != '\0' ? list : "/etc/xdg");
  for (std::string path; std::getline(paths, path, ':');) {
    if (path.starts_with('/')) folders.push_back(path);
  }
  return folders;
}

std::optional<std::string> faultOfOwner(const std::string& folder) {
  return faultOfFolder(folder, false);
}

std::optional<std::string> faultOfSystemOwner(const std::string& folder) {
  return faultOfFolder(folder, true);
}

std::optional<std::string> faultOfFileOwner(const std::string& file) {
  struct stat information {};
  if (stat(file.c_str(), &information) != 0) return std::nullopt;
  if (information.st_uid != geteuid() && information.st_uid != kRoot) {
    return translated("it belongs to another user");
  }
  const bool isShared = (information.st_mode & S_IWOTH) != 0;
  if (isShared) return translated("anyone can write to it");
  return std::nullopt;
}

}  // namespace publishing
