// SPDX-License-Identifier: Apache-2.0
#include "programs/gtk-settings/GtkSettingsFile.h"

#include <filesystem>
#include <optional>

#include "base/AtomicFile.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "programs/gtk-settings/SettingsChange.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;
using Change = GtkSettingsFile::Change;
using Made = GtkSettingsText::Made;

constexpr std::size_t kLargestFile = 1048576;  // bytes; a usual one has less than 1 KiB

// Nothing when there is no such file.
std::optional<GtkSettingsText> readFile(const std::string& path) {
  TextFile file = readTextFile(path, kLargestFile);
  if (file.isUnusable()) {
    throw PrintError::trouble(translated(
        "%s cannot be read: %s. Check its permissions and that it is a file; nothing was changed.",
        shown(path), file.fault));
  }
  if (file.isMissing()) return std::nullopt;
  GtkSettingsText settings(std::move(file.text));
  if (const auto fault = settings.fault()) {
    throw PrintError::trouble(translated(
        "GTK does not understand %s: %s. Fix the file or move it away; nothing was changed.",
        shown(path), *fault));
  }
  return settings;
}

}  // namespace

Change GtkSettingsFile::enable(const std::string& inherited) const {
  return changeSettings(path_, remedy_, [&](const fs::path& target) {
    const auto given = readFile(target);
    GtkSettingsText settings = given.value_or(GtkSettingsText(""));
    const bool folderIsNew = fs::create_directories(target.parent_path());
    settings.enable(inherited, given ? Made::Group : folderIsNew ? Made::Folder : Made::File);
    if (given && given->text() == settings.text()) return Change::None;
    replaceFile(target, settings.text());
    return Change::Written;
  });
}

Change GtkSettingsFile::disable() const {
  return changeSettings(path_, remedy_, [&](const fs::path& target) {
    const auto given = readFile(target);
    if (!given) return Change::None;
    GtkSettingsText settings = *given;
    const Made made = settings.disable();
    if (given->text() == settings.text()) return Change::None;
    const bool ownFile = made == Made::File || made == Made::Folder;
    if (!settings.text().empty() || !ownFile || fs::is_symlink(path_)) {
      replaceFile(target, settings.text());
      return Change::Written;
    }
    fs::remove(target);
    std::error_code inUse;
    if (made == Made::Folder) fs::remove(target.parent_path(), inUse);
    return Change::Removed;
  });
}

}  // namespace publishing
