// SPDX-License-Identifier: Apache-2.0
#include "shells/HostRules.h"

#include "Publishing/PublishingPDE.h"
#include "base/GlibHandles.h"
#include "base/Translation.h"
#include "base/UserFolders.h"
#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

constexpr const char* kFile = PUBLISHING_RULES_FILE;
constexpr const char* kGroup = PUBLISHING_RULES_GROUP;
constexpr int kMostSeconds = 600;

bool readFile(GKeyFile* file, const std::string& folder, HostRules& rules) {
  const std::string path = folder + "/" + kFile;
  if (g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr) == 0) return false;
  rules.file = path;
  return true;
}

GlibKeyFile readFiles(HostRules& rules) {
  GlibKeyFile file(g_key_file_new());
  if (readFile(file.get(), userConfigFolder(), rules)) return file;
  for (const std::string& folder : systemConfigFolders()) {
    if (readFile(file.get(), folder, rules)) break;
  }
  return file;
}

// `variable` is that of the environment which overrules the file; null when there is none.
void readSwitch(GKeyFile* file, const char* key, const char* variable, bool& value) {
  GError* failure = nullptr;
  const bool isOn = g_key_file_get_boolean(file, kGroup, key, &failure) != 0;
  const GlibError error(failure);
  if (error == nullptr) {
    value = isOn;
  } else if (g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_INVALID_VALUE)) {
    g_message("%s: %s is true or false", kFile, key);
  }
  const gchar* wish = variable != nullptr ? g_getenv(variable) : nullptr;
  if (wish != nullptr) value = g_strcmp0(wish, "0") != 0 && g_strcmp0(wish, "off") != 0;
}

void readSeconds(GKeyFile* file, HostRules& rules) {
  if (g_key_file_has_key(file, kGroup, "PrinterSeconds", nullptr) == 0) return;
  const int seconds = g_key_file_get_integer(file, kGroup, "PrinterSeconds", nullptr);
  if (seconds >= 1 && seconds <= kMostSeconds) {
    rules.printerSeconds = static_cast<unsigned>(seconds);
  } else {
    g_message("%s: PrinterSeconds is a number between 1 and %d", kFile, kMostSeconds);
  }
}

}  // namespace

bool HostRules::wantPanel() const {
  return extension && (showHiddenPanels || !PublishingPDE::shouldHide());
}

std::string HostRules::againstRemembering() const {
  if (remember) return {};
  return translated("Nothing is remembered: %s has Remember=false.", shown(file));
}

HostRules HostRules::load() {
  HostRules rules;
  const GlibKeyFile file = readFiles(rules);
  readSwitch(file.get(), PUBLISHING_RULES_SWITCH, PUBLISHING_SWITCH, rules.extension);
  readSwitch(file.get(), "ShowHiddenPanels", "PUBLISHING_SHOW_HIDDEN_PANELS",
             rules.showHiddenPanels);
  readSwitch(file.get(), "Remember", nullptr, rules.remember);
  readSeconds(file.get(), rules);
  const gchar* folder = g_getenv("PUBLISHING_DATA_DIR");
  rules.dataFolder = folder != nullptr ? folder : PUBLISHING_DATA_DIR;
  return rules;
}

}  // namespace publishing
