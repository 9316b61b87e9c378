// SPDX-License-Identifier: Apache-2.0
#include "printing/presets/Presets.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include <glib.h>
#include <glib/gstdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "printing/presets/PresetFile.h"

namespace publishing {
namespace {

constexpr const char* kFolder = "/publishing/presets";
constexpr const char* kEnding = ".preset";
constexpr std::size_t kMostFiles = 1000;  // that are looked at in one folder
constexpr mode_t kOwnFile = 0600;
constexpr mode_t kExportedFile = 0666;  // less the umask

std::string fileOf(const std::string& folder, const std::string& key) {
  return folder + "/" + fileNameOf(key) + kEnding;
}

bool exists(const std::string& path) {
  struct stat information {};
  return lstat(path.c_str(), &information) == 0;
}

PrintError cannotWrite(const std::string& path, const std::string& reason) {
  return PrintError::trouble(
      translated("The preset cannot be written to %s: %s. Nothing was changed; check the folder's "
                 "permissions and free space.",
                 shown(path), reason));
}

PrintError alreadyThere(const std::string& name) {
  return PrintError::refused(translated("There is a preset named \"%s\" already.", shown(name)));
}

// Throws std::system_error.
void write(const std::string& path, mode_t mode, const std::string& text,
           Presets::Existing existing) {
  AtomicFile file(path, mode);
  file.write(text);
  if (existing == Presets::Existing::Replace) {
    file.replace();
  } else {
    file.create();
  }
}

StoredPreset read(const std::string& path, bool isShared) {
  if (const auto fault = faultOfFileOwner(path)) {
    throw PrintError::trouble(translated("%s is not used: %s.", shown(path), *fault));
  }
  ReadPreset read = readPresetFile(path);
  return {std::move(read.preset), isShared, path, std::move(read.warnings)};
}

// The preset files in their order by name; none, without an error, of a folder that is not there.
std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == kEnding) files.push_back(entry->path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

void checkName(const std::string& name) {
  if (const auto fault = faultOfPresetName(name)) throw PrintError::usage(*fault);
}

// The preset's file in the folder; another one when that holds a preset of another name.
std::string fileFor(const std::string& folder, const std::string& key,
                    const std::vector<std::string>& earlier) {
  std::string path = fileOf(folder, key);
  for (int number = 2; exists(path); ++number) {
    if (std::find(earlier.begin(), earlier.end(), path) != earlier.end()) break;
    path = fileOf(folder, key + " " + std::to_string(number));
  }
  return path;
}

}  // namespace

// What is in a folder.
struct Presets::Scan {
  std::vector<StoredPreset> presets;  // each name once
  std::vector<std::string> warnings;

  void add(StoredPreset found) {
    const std::string key = keyOfPreset(found.preset.name);
    for (const StoredPreset& known : presets) {
      if (keyOfPreset(known.preset.name) != key) continue;
      warnings.push_back(translated("%s is not used: %s has the same name.", shown(found.file),
                                    shown(known.file)));
      return;
    }
    presets.push_back(std::move(found));
  }
};

std::string Presets::defaultFolder() {
  return userConfigFolder() + kFolder;
}

std::vector<std::string> Presets::defaultSharedFolders() {
  std::vector<std::string> folders = systemConfigFolders();
  for (std::string& folder : folders)
    folder += kFolder;
  return folders;
}

Presets::Presets(std::string folder, std::vector<std::string> sharedFolders) {
  folders_.push_back({std::move(folder), false});
  for (std::string& shared : sharedFolders)
    folders_.push_back({std::move(shared), true});
}

std::optional<std::string> Presets::faultOf(const Folder& folder) {
  const auto fault = folder.isShared ? faultOfSystemOwner(folder.path) : faultOfOwner(folder.path);
  if (!fault) return std::nullopt;
  return translated("The presets in %s are not used: %s.", shown(folder.path), *fault);
}

Presets::Scan Presets::scan(const Folder& folder) {
  Scan scan;
  std::vector<std::string> files = filesIn(folder.path);
  if (files.empty()) return scan;
  if (const auto fault = faultOf(folder)) {
    scan.warnings.push_back(*fault);
    return scan;
  }
  if (files.size() > kMostFiles) {
    scan.warnings.push_back(translated("%s has more than %d presets; the others are not used.",
                                       shown(folder.path), static_cast<int>(kMostFiles)));
    files.resize(kMostFiles);
  }
  for (const std::string& file : files) {
    try {
      scan.add(read(file, folder.isShared));
    } catch (const PrintError& error) {
      scan.warnings.emplace_back(error.what());
    }
  }
  return scan;
}

std::optional<StoredPreset> Presets::Listing::named(const std::string& name) const {
  if (faultOfPresetName(name)) return std::nullopt;
  const std::string key = keyOfPreset(name);
  const auto found = std::find_if(presets.begin(), presets.end(), [&key](const auto& stored) {
    return keyOfPreset(stored.preset.name) == key;
  });
  if (found == presets.end()) return std::nullopt;
  return *found;
}

Presets::Listing Presets::list() const {
  Listing listing;
  std::vector<std::pair<std::string, StoredPreset>> byKey;
  for (const Folder& folder : folders_) {
    Scan found = scan(folder);
    std::move(found.warnings.begin(), found.warnings.end(), std::back_inserter(listing.warnings));
    for (StoredPreset& preset : found.presets) {
      const std::string key = keyOfPreset(preset.preset.name);
      const bool isHidden = std::any_of(byKey.begin(), byKey.end(),
                                        [&key](const auto& known) { return known.first == key; });
      if (!isHidden) byKey.emplace_back(key, std::move(preset));
    }
  }
  std::sort(byKey.begin(), byKey.end(),
            [](const auto& left, const auto& right) { return left.first < right.first; });
  for (auto& entry : byKey)
    listing.presets.push_back(std::move(entry.second));
  return listing;
}

// A file that bears the name but cannot be used is an error: the administrator's preset in its
// place would be another one.
StoredPreset Presets::find(const std::string& name) const {
  checkName(name);
  const std::string key = keyOfPreset(name);
  for (const Folder& folder : folders_) {
    Scan found = scan(folder);
    for (StoredPreset& preset : found.presets) {
      if (keyOfPreset(preset.preset.name) == key) return std::move(preset);
    }
    const std::string path = fileOf(folder.path, key);
    if (!exists(path)) continue;
    if (const auto fault = faultOf(folder)) throw PrintError::trouble(*fault);
    (void)read(path, folder.isShared);
  }
  throw noSuchPreset(name);
}

PrintError Presets::noSuchPreset(const std::string& name) const {
  std::string names;
  for (const StoredPreset& known : list().presets)
    names += "\n  " + shown(known.preset.name);
  if (names.empty()) {
    return PrintError::refused(
        translated("There is no preset named \"%s\", and no other.", shown(name)));
  }
  return PrintError::refused(
      translated("There is no preset named \"%s\". The presets are:%s", shown(name), names));
}

bool Presets::hasOwn(const std::string& name) const {
  return !faultOfPresetName(name) && !ownFilesOf(keyOfPreset(name)).empty();
}

// Those that hold the preset, and the one that would, whatever is in it.
std::vector<std::string> Presets::ownFilesOf(const std::string& key) const {
  const Folder& own = folders_.front();
  const std::string path = fileOf(own.path, key);
  std::vector<std::string> files;
  for (const std::string& file : filesIn(own.path)) {
    bool isIt = file == path;
    try {
      isIt = keyOfPreset(read(file, false).preset.name) == key;
    } catch (const PrintError&) {
      // Only the file's name tells what it was.
    }
    if (isIt) files.push_back(file);
  }
  return files;
}

void Presets::store(const Preset& preset, Existing existing) const {
  checkName(preset.name);
  const std::string text = textOf(preset);
  const std::string& folder = folders_.front().path;
  if (const auto fault = faultOfOwner(folder)) throw cannotWrite(folder, *fault);
  if (g_mkdir_with_parents(folder.c_str(), 0700) != 0) throw cannotWrite(folder, g_strerror(errno));
  const std::string key = keyOfPreset(preset.name);
  const auto earlier = ownFilesOf(key);
  const std::string path = fileFor(folder, key, earlier);
  if (existing == Existing::Keep && !earlier.empty()) throw alreadyThere(preset.name);
  try {
    write(path, kOwnFile, text, existing);
  } catch (const std::system_error& error) {
    if (error.code().value() == EEXIST) throw alreadyThere(preset.name);
    throw cannotWrite(path, error.code().message());
  }
  for (const std::string& file : earlier) {
    if (file != path) g_unlink(file.c_str());
  }
}

void Presets::remove(const std::string& name) const {
  checkName(name);
  const std::string key = keyOfPreset(name);
  const auto files = ownFilesOf(key);
  if (files.empty()) {
    const StoredPreset shared = find(name);
    throw PrintError::refused(
        translated("The preset \"%s\" is the administrator's (%s) and cannot be deleted. A preset "
                   "of your own with this name hides it.",
                   shown(shared.preset.name), shown(shared.file)));
  }
  for (const std::string& file : files) {
    if (g_unlink(file.c_str()) == 0 || errno == ENOENT) continue;
    throw PrintError::trouble(
        translated("The preset in %s cannot be deleted: %s.", shown(file), g_strerror(errno)));
  }
}

void exportPreset(const Preset& preset, const std::string& path, Presets::Existing existing) {
  const std::string text = textOf(preset);
  std::error_code ignored;
  const auto status = std::filesystem::symlink_status(path, ignored);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw PrintError::refused(translated("%s is not a regular file.", shown(path)));
  }
  try {
    write(path, kExportedFile, text, existing);
  } catch (const std::system_error& error) {
    if (error.code().value() != EEXIST) throw cannotWrite(path, error.code().message());
    throw PrintError::refused(translated("%s is there already.", shown(path)));
  }
}

}  // namespace publishing
