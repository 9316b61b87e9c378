// SPDX-License-Identifier: Apache-2.0
#include "printing/StoredSettings.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <glib/gstdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Publishing/PublishingFeatures.h"
#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "base/GlibHandles.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "printing/PrintError.h"
#include "printing/StoredValues.h"

namespace publishing {
namespace {

constexpr const char* kGroup = "Publishing";
constexpr std::size_t kLargestFile = 65536;  // bytes; a sound file has less than 4 KiB
constexpr int kMostBrokenFiles = 999;

std::vector<std::string> storedKeys() {
  std::vector<std::string> keys = {StoredSettings::kRemember};
  for (const PublishingFeature& feature : kFeatures) {
    keys.insert(keys.end(), feature.keys.begin(), feature.keys.end());
    keys.emplace_back(feature.option);
    keys.push_back(StoredSettings::mediumTextKey(feature));
  }
  return keys;
}

bool isMediumText(const std::string& key) {
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&key](const auto& feature) {
    return key == StoredSettings::mediumTextKey(feature);
  });
}

bool isStored(const std::string& key) {
  const auto keys = storedKeys();
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// Why the value cannot be trusted; nothing when it can.
std::optional<std::string> faultOf(const std::string& key, const std::string& value) {
  if (key == kPageinsertNums) return faultOfStoredPageList(key, value);
  return isMediumText(key) ? faultOfStoredText(key, value) : faultOfStoredOption(key, value);
}

PrintError cannotWrite(const std::string& path, const std::string& reason) {
  return PrintError::trouble(
      translated("The settings cannot be stored in %s: %s. The earlier settings are kept; check "
                 "the folder's permissions and free space.",
                 shown(path), reason));
}

// Runs `keep` with the first of FILE.broken-1, -2, ... that is free and answers that name; empty
// when it failed. `keep` answers 0 or sets errno.
template <class Keep>
std::string keptAside(const std::string& path, const Keep& keep) {
  for (int number = 1; number <= kMostBrokenFiles; ++number) {
    std::string aside = path + ".broken-" + std::to_string(number);
    if (keep(aside.c_str()) == 0) return aside;
    if (errno != EEXIST) break;
  }
  return {};
}

std::string moveAside(const std::string& path) {
  return keptAside(path, [&path](const char* aside) {
    return renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, aside, RENAME_NOREPLACE);
  });
}

// The file keeps its name too, until it is replaced.
std::string linkAside(const std::string& path) {
  return keptAside(path, [&path](const char* aside) { return link(path.c_str(), aside); });
}

struct Reading {
  GlibKeyFile file{g_key_file_new()};  // what could be parsed
  StoredSettings::Values values;       // the sound ones of our keys
  std::vector<std::string> faults;     // for the user
  bool isKeyFile = true;               // or there is no file
  bool hasUnsoundValues = false;       // of our keys
};

void readEntry(Reading& reading, const std::string& group, const std::string& key,
               const std::string& path) {
  const auto report = [&](const std::string& reason) {
    reading.faults.push_back(translated("%s: %s", shown(path), reason));
  };
  if (group != kGroup || !isStored(key)) {
    report(translated("The entry %s is unknown and was ignored.", shown(key)));
    return;
  }
  GError* failure = nullptr;
  const GlibText text(g_key_file_get_string(reading.file.get(), kGroup, key.c_str(), &failure));
  const GlibError owner(failure);
  // A value with an unknown escape comes with an error and a text.
  const auto fault =
      failure == nullptr ? faultOf(key, text.get()) : std::optional(shown(failure->message));
  if (fault) {
    reading.hasUnsoundValues = true;
    report(*fault);
  } else {
    reading.values.insert_or_assign(key, text.get());
  }
}

void readEntries(Reading& reading, const std::string& path) {
  const GlibTexts groups(g_key_file_get_groups(reading.file.get(), nullptr));
  for (char** group = groups.get(); *group != nullptr; ++group) {
    const GlibTexts keys(g_key_file_get_keys(reading.file.get(), *group, nullptr, nullptr));
    for (char** key = keys.get(); key != nullptr && *key != nullptr; ++key)
      readEntry(reading, *group, *key, path);
  }
}

Reading readFile(const std::string& path) {
  Reading reading;
  TextFile contents = readTextFile(path, kLargestFile);
  GError* failure = nullptr;
  if (contents.isRead() &&
      g_key_file_load_from_data(reading.file.get(), contents.text.data(), contents.text.size(),
                                G_KEY_FILE_KEEP_COMMENTS, &failure) == FALSE) {
    contents.fault = shown(GlibError(failure)->message);
  }
  if (contents.fault.empty()) {
    readEntries(reading, path);
  } else {
    reading.isKeyFile = false;
    reading.file.reset(g_key_file_new());
    reading.faults.push_back(
        translated("%s cannot be read as settings: %s.", shown(path), contents.fault));
  }
  return reading;
}

// A file that has the key twice gives its last entry, and removing that brings back the one before.
void removeKey(GKeyFile* file, const char* key) {
  while (g_key_file_remove_key(file, kGroup, key, nullptr) != FALSE) {
    gsize length = 0;
    const GlibText contents(g_key_file_to_data(file, &length, nullptr));
    g_key_file_load_from_data(file, contents.get(), length, G_KEY_FILE_KEEP_COMMENTS, nullptr);
  }
}

}  // namespace

std::string StoredSettings::defaultFolder() {
  return userConfigFolder() + "/publishing";
}

std::string StoredSettings::fileOf(const std::string& queue) const {
  return folder_ + "/" + fileNameOf(queue) + ".conf";
}

StoredSettings::Loaded StoredSettings::load(const std::string& queue) const {
  const std::string path = fileOf(queue);
  const auto fault = faultOfOwner(folder_);
  if (fault && access(path.c_str(), F_OK) == 0) {
    return {{}, {translated("The settings in %s are not used: %s.", shown(path), *fault)}};
  }
  Reading reading = readFile(path);
  if (!reading.isKeyFile) {
    const std::string aside = moveAside(path);
    reading.faults.back() += " " + (aside.empty() ? translated("It was left in place; remove it.")
                                                  : translated("It was kept as %s.", shown(aside)));
  }
  return {std::move(reading.values), std::move(reading.faults)};
}

void StoredSettings::store(const std::string& queue, const Values& values) const {
  const std::string path = fileOf(queue);
  if (const auto fault = faultOfOwner(folder_)) throw cannotWrite(folder_, *fault);
  if (g_mkdir_with_parents(folder_.c_str(), 0700) != 0)
    throw cannotWrite(folder_, g_strerror(errno));
  const Reading earlier = readFile(path);
  if (!earlier.isKeyFile && moveAside(path).empty()) throw cannotWrite(path, g_strerror(errno));
  if (earlier.hasUnsoundValues && linkAside(path).empty()) {
    throw cannotWrite(path, g_strerror(errno));
  }
  for (const std::string& key : storedKeys()) {
    removeKey(earlier.file.get(), key.c_str());
    const auto value = values.find(key);
    if (value == values.end()) continue;
    if (const auto fault = faultOf(key, value->second)) throw PrintError::refused(*fault);
    g_key_file_set_string(earlier.file.get(), kGroup, key.c_str(), value->second.c_str());
  }
  gsize length = 0;
  const GlibText contents(g_key_file_to_data(earlier.file.get(), &length, nullptr));
  try {
    AtomicFile file(path, S_IRUSR | S_IWUSR);
    file.write({contents.get(), length});
    file.replace();
  } catch (const std::system_error& error) {
    throw cannotWrite(path, error.code().message());
  }
}

bool StoredSettings::clear(const std::string& queue) const {
  const std::string path = fileOf(queue);
  if (g_unlink(path.c_str()) == 0) return true;
  if (errno == ENOENT || errno == ENOTDIR) return false;
  throw PrintError::trouble(
      translated("The settings in %s cannot be removed: %s.", shown(path), g_strerror(errno)));
}

}  // namespace publishing
