// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/GtkExtension.h"

#include <filesystem>

#include "base/Translation.h"
#include "base/UserFolders.h"
#include "programs/gtk-settings/SettingsChange.h"
#include "programs/terminal/Terminal.h"
#include "shells/ExtensionNames.h"

namespace publishing {
namespace {

using nlohmann::json;

}  // namespace

GtkExtension::GtkExtension(GtkVersion gtk, bool system, const std::string& remedy)
    : gtk_(gtk),
      system_(system),
      places_(GtkSettingsPlaces::here(gtk)),
      file_(system ? places_.systemFile : places_.userFile, remedy),
      backends_(printBackends(places_, !system)),
      library_(printBackendLibrary(gtk)) {}

ExitStatus GtkExtension::enable() {
  isEnabling_ = true;
  if (gtk_ == GtkVersion::Gtk4 && !isFound()) return kDone;
  change_ = Change::None;
  if (!isListed()) {
    if (!system_) checkOwner(file_.path());
    change_ = file_.enable(inheritedBackends(places_, file_.path()));
    backends_ = printBackends(places_, !system_);
  }
  return isListed() ? kDone : kRefused;
}

ExitStatus GtkExtension::disable() {
  if (gtk_ == GtkVersion::Gtk4 && !isFound() && !isListed()) return kDone;
  change_ = file_.disable();
  backends_ = printBackends(places_, !system_);
  return isListed() ? kRefused : kDone;
}

void GtkExtension::tell() const {
  if (!change_) return;
  if (*change_ == Change::Removed) {
    say(translated("%s was removed: it contained nothing but the print backend \"publishing\".",
                   shown(file_.path())));
  } else if (*change_ == Change::Written && isEnabling_) {
    say(
        translated("%s: the print backend \"publishing\" was added. Programs that you start from "
                   "now on will show the panel in their print dialogs.",
                   shown(file_.path())));
  } else if (*change_ == Change::Written) {
    say(translated("%s: the print backend \"publishing\" was removed.", shown(file_.path())));
  } else if (isEnabling_ && isListed()) {
    say(translated("Nothing to do: %s already lists \"publishing\".", source()));
  } else if (!isEnabling_) {
    say(translated("Nothing to do: %s does not list \"publishing\".", shown(file_.path())));
  }
}

void GtkExtension::tellState() const {
  if (gtk_ == GtkVersion::Gtk3) {
    say(translated(isListed() ? N_("enabled by %s: gtk-print-backends=%s")
                              : N_("not enabled by %s: gtk-print-backends=%s"),
                   source(), shown(backends_.list)));
    if (library_) say(translated("library: %s", shown(*library_)));
  } else if (!isFound()) {
    say(translated("GTK 4: not installed (package %s)", "publishing-gtk4"));
  } else if (isListed()) {
    say(translated("GTK 4: enabled by %s", source()));
  } else {
    say(translated("GTK 4: not enabled"));
  }
}

void GtkExtension::warnOfFaults() const {
  if (gtk_ == GtkVersion::Gtk4 && !isFound() && !isListed()) return;
  for (const std::string& warning : backends_.warnings)
    warn(warning);
  const bool isDisabling = change_ && !isEnabling_;
  if (gtk_ == GtkVersion::Gtk3 && !isFound() && !isDisabling) {
    warn(translated("GTK cannot find %s. Install the package %s.", PUBLISHING_BACKEND_LIBRARY,
                    "publishing-print-dialog"));
  }
  if (gtk_ == GtkVersion::Gtk4 && isFound() && !isInModuleCache(*library_)) {
    warn(
        translated("Every GTK 4 program loads the panel's library when it starts, because the file "
                   "giomodule.cache does not list it. Run as administrator: gio-querymodules %s",
                   shown(std::filesystem::path(*library_).parent_path().string())));
  }
  if (change_ && isListed() != isEnabling_) warnOfOtherFile();
}

void GtkExtension::warnOfOtherFile() const {
  if (isEnabling_) {
    warn(
        translated("%s has another list, which takes precedence: gtk-print-backends=%s. Add "
                   "\"publishing\" there.",
                   source(), shown(backends_.list)));
  } else if (system_) {
    warn(translated("%s still lists \"publishing\". Remove it there.", source()));
  } else {
    warn(
        translated("The panel is still on, because %s lists \"publishing\". To switch it off "
                   "for all users: sudo publishing extension disable --system. To switch it "
                   "off for yourself: Extension=false in the group [Dialog] of %s.",
                   source(), userConfigFolder() + "/" PUBLISHING_RULES_FILE));
  }
}

// What the list that counts is from.
std::string GtkExtension::source() const {
  return backends_.file.empty() ? translated("GTK's own setting") : shown(backends_.file);
}

json GtkExtension::asJson() const {
  json result = {{"backends", backends_.list},
                 {"enabled", isListed()},
                 {"file", backends_.file.empty() ? json(nullptr) : json(backends_.file)},
                 {"library", library_ ? json(*library_) : json(nullptr)},
                 {"works", isListed() && isFound()}};
  if (gtk_ == GtkVersion::Gtk4) result["cached"] = isFound() && isInModuleCache(*library_);
  if (change_) result["change"] = {{"file", file_.path()}, {"what", nameOf(*change_)}};
  return result;
}

}  // namespace publishing
