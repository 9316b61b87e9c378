// SPDX-License-Identifier: Apache-2.0
#include "programs/gtk-settings/SettingsChange.h"

#include <cerrno>
#include <system_error>

#include "base/Translation.h"
#include "base/UserFolders.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

fs::path targetOf(const std::string& path) {
  if (!fs::is_symlink(path) || fs::exists(path)) return fs::weakly_canonical(path);
  throw PrintError::trouble(
      translated("%s is a link to %s, which does not exist. Create that file or remove the link; "
                 "nothing was changed.",
                 shown(path), shown(fs::read_symlink(path))));
}

}  // namespace

GtkSettingsFile::Change changeSettings(
    const std::string& path, const std::string& remedy,
    const std::function<GtkSettingsFile::Change(const fs::path& target)>& change) {
  try {
    return change(targetOf(path));
  } catch (const std::system_error& error) {
    const int code = error.code().value();
    const bool forbidden = code == EACCES || code == EPERM;
    throw PrintError::trouble(
        translated("%s cannot be changed: %s. %s", shown(path), error.code().message(),
                   forbidden ? remedy
                             : translated("Check the file system and its free space; "
                                          "nothing was changed.")));
  }
}

void checkOwner(const std::string& path) {
  const auto fault = faultOfOwner(fs::path(path).parent_path());
  if (!fault) return;
  throw PrintError::trouble(
      translated("%s cannot be changed: %s. Check HOME and XDG_CONFIG_HOME; nothing was changed.",
                 shown(path), *fault));
}

const char* nameOf(GtkSettingsFile::Change change) {
  using Change = GtkSettingsFile::Change;
  if (change == Change::None) return "none";
  return change == Change::Written ? "written" : "removed";
}

}  // namespace publishing
