// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/QtExtension.h"

#include <cstdlib>

#include "base/Translation.h"
#include "programs/gtk-settings/SettingsChange.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

using nlohmann::json;

// Whether programs that are started in this session find the folder.
bool sessionNames(const std::string& folder) {
  const char* folders = std::getenv("QT_PLUGIN_PATH");
  const std::string list = std::string(":") + (folders != nullptr ? folders : "") + ":";
  return list.find(":" + folder + ":") != std::string::npos;
}

}  // namespace

QtExtension::QtExtension(bool system, const std::string& remedy)
    : places_(QtPlaces::here()),
      system_(system),
      file_(system ? places_.systemFile : places_.userFile, remedy) {}

std::string QtExtension::enabledBy() const {
  if (file_.names(places_.folder)) return file_.path();
  const QtSettingsFile forAll(places_.systemFile, "");
  return !system_ && forAll.names(places_.folder) ? forAll.path() : "";
}

void QtExtension::test() {
  for (const int version : places_.versions()) {
    if (const auto fault = places_.faultOf(version)) {
      faults_.push_back(translated(
          "Qt %d cannot load the panel: %s. It stays off in the print dialogs of Qt programs.",
          version, *fault));
    }
  }
}

ExitStatus QtExtension::enable() {
  change_ = Change::None;
  if (places_.versions().empty()) return kDone;
  test();
  if (!faults_.empty()) {
    change_ = file_.disable();  // with what cannot be loaded, programs would have no printers
    return kRefused;
  }
  if (enabledBy().empty()) {
    if (!system_) checkOwner(file_.path());
    change_ = file_.enable(places_.folder);
  }
  return kDone;
}

ExitStatus QtExtension::disable() {
  change_ = file_.disable();
  return enabledBy().empty() ? kDone : kRefused;
}

void QtExtension::tell() const {
  if (!change_) return;
  const std::string file = shown(file_.path());
  if (*change_ == Change::Written) {
    say(
        translated("%s: the panel for Qt programs was added. They will show it in their print "
                   "dialogs once you have logged in again.",
                   file));
  } else if (*change_ == Change::Removed) {
    say(
        translated("%s was removed. Qt programs show no panel in their print dialogs once you have "
                   "logged in again.",
                   file));
  } else if (!enabledBy().empty()) {
    say(translated("Nothing to do: %s already has the panel for Qt programs.", shown(enabledBy())));
  }
}

void QtExtension::tellState() const {
  if (places_.versions().empty()) {
    say(translated("Qt: not installed (packages %s and %s)", "publishing-qt5", "publishing-qt6"));
  } else if (enabledBy().empty()) {
    say(translated("Qt: not enabled"));
  } else if (sessionNames(places_.folder)) {
    say(translated("Qt: enabled by %s", shown(enabledBy())));
  } else {
    say(translated("Qt: enabled by %s, from your next login on", shown(enabledBy())));
  }
}

void QtExtension::warnOfFaults() const {
  for (const std::string& fault : faults_)
    warn(fault);
  if (change_ && *change_ != Change::Written && enabledBy() != file_.path() &&
      !enabledBy().empty()) {
    warn(translated("%s has the panel for Qt programs of all users.", shown(enabledBy())));
  }
}

json QtExtension::asJson() const {
  const std::string file = enabledBy();
  const bool isInSession = sessionNames(places_.folder);
  json result = {{"enabled", !file.empty()},
                 {"file", file.empty() ? json(nullptr) : json(file)},
                 {"folder", places_.folder},
                 {"versions", places_.versions()},
                 {"session", isInSession},
                 {"works", !file.empty() && isInSession && !places_.versions().empty()},
                 {"faults", faults_}};
  if (change_) {
    result["change"] = {{"file", file_.path()}, {"what", nameOf(*change_)}};
  }
  return result;
}

}  // namespace publishing
