// SPDX-License-Identifier: Apache-2.0
#include "base/UserFolders.h"

#include <cstdlib>
#include <filesystem>

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

}  // namespace

std::string userConfigFolder() {
  if (const auto folder = absolutePathIn("XDG_CONFIG_HOME")) return *folder;
  return absolutePathIn("HOME").value_or(homeByAccount()) + "/.config";
}

std::optional<std::string> faultOfOwner(const std::string& folder) {
  std::filesystem::path nearest = folder;
  struct stat information {};
  while (stat(nearest.c_str(), &information) != 0 && nearest.has_relative_path())
    nearest = nearest.parent_path();
  // As in /tmp: there everybody can make folders, and takes away nobody else's.
  const bool isSticky = (information.st_mode & S_ISVTX) != 0;
  if (isSticky && nearest != folder) return std::nullopt;
  if (information.st_uid != geteuid()) {
    return translated("the folder %s belongs to another user", shown(nearest));
  }
  const bool isShared = (information.st_mode & S_IWOTH) != 0;
  if (isShared) return translated("everybody can write to the folder %s", shown(nearest));
  return std::nullopt;
}

}  // namespace publishing
