// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/ExtensionCommand.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "base/UserFolders.h"
#include "programs/commands/QtExtension.h"
#include "programs/gtk-settings/GtkSettingsFile.h"
#include "programs/gtk-settings/GtkSettingsPlaces.h"
#include "programs/gtk-settings/SettingsChange.h"
#include "programs/terminal/Terminal.h"
#include "shells/ExtensionNames.h"
#include "shells/HostRules.h"

namespace publishing {
namespace {

using nlohmann::json;
using Change = GtkSettingsFile::Change;

struct ExtensionOptions {
  bool system = false;
  bool json = false;
};

// What "status" tells, and what the other two tell of besides their change.
struct State {
  PrintBackends backends;
  std::optional<std::string> library;
  std::optional<std::string> switchedOffBy;

  [[nodiscard]] bool isListed() const { return listsPublishing(backends.list); }
};

State stateOf(const GtkSettingsPlaces& places, const ExtensionOptions& options) {
  State state = {printBackends(places, !options.system), printBackendLibrary(), {}};
  const HostRules rules = HostRules::load();
  if (!rules.extension) {
    state.switchedOffBy =
        std::getenv(PUBLISHING_SWITCH) != nullptr ? PUBLISHING_SWITCH : shown(rules.file);
  }
  return state;
}

std::string remedyOf(const ExtensionOptions& options) {
  return options.system
             ? translated(
                   "It belongs to the administrator: put \"sudo\" before the command; "
                   "nothing was changed.")
             : translated("Make sure that you own it and may write to it; nothing was changed.");
}

GtkSettingsFile fileOf(const GtkSettingsPlaces& places, const ExtensionOptions& options) {
  return {options.system ? places.systemFile : places.userFile, remedyOf(options)};
}

// Another user's file would become this user's, or the other way round.
void checkOwner(const GtkSettingsFile& file) {
  const auto fault = faultOfOwner(std::filesystem::path(file.path()).parent_path());
  if (!fault) return;
  throw PrintError::trouble(
      translated("%s cannot be changed: %s. Check HOME and XDG_CONFIG_HOME; nothing was changed.",
                 shown(file.path()), *fault));
}

std::string nameOf(const PrintBackends& backends) {
  return backends.file.empty() ? translated("GTK's own setting") : shown(backends.file);
}

void warnOf(const State& state) {
  for (const std::string& warning : state.backends.warnings)
    warn(warning);
  if (!state.library) {
    warn(translated("GTK cannot find %s. Install the package %s.", PUBLISHING_BACKEND_LIBRARY,
                    "publishing-print-dialog"));
  }
  if (state.switchedOffBy) {
    warn(translated("%s still switches the panel off.", *state.switchedOffBy));
  }
}

json asJson(const State& state) {
  const auto orNull = [](const auto& text) { return text ? json(*text) : json(nullptr); };
  const std::string& file = state.backends.file;
  return {{"backends", state.backends.list},
          {"enabled", state.isListed()},
          {"file", file.empty() ? json(nullptr) : json(file)},
          {"library", orNull(state.library)},
          {"switchedOffBy", orNull(state.switchedOffBy)},
          {"works", state.isListed() && state.library && !state.switchedOffBy}};
}

json asJson(const State& state, const QtExtension& qt) {
  json result = asJson(state);
  result["toolkits"] = {
      {"gtk3",
       {{"enabled", result["enabled"]}, {"file", result["file"]}, {"works", result["works"]}}},
      {"qt", qt.asJson()}};
  if (state.switchedOffBy) result["toolkits"]["qt"]["works"] = false;
  return result;
}

void writeChange(const std::string& file, Change change, const State& state,
                 const QtExtension& qt) {
  json result = asJson(state, qt);
  result["change"] = {{"file", file}, {"what", nameOf(change)}};
  sayJson(result);
}

ExitStatus runEnable(const ExtensionOptions& options) {
  const auto places = GtkSettingsPlaces::here();
  const GtkSettingsFile file = fileOf(places, options);
  State state = stateOf(places, options);
  Change change = Change::None;
  if (!state.isListed()) {
    if (!options.system) checkOwner(file);
    change = file.enable(inheritedBackends(places, file.path()));
    state = stateOf(places, options);
  }
  QtExtension qt(options.system, remedyOf(options));
  const ExitStatus qtStatus = qt.enable();
  if (options.json) {
    writeChange(file.path(), change, state, qt);
  } else if (change != Change::None) {
    say(
        translated("%s: the print backend \"publishing\" was added. Programs that you start from "
                   "now on will show the panel in their print dialogs.",
                   shown(file.path())));
  } else if (state.isListed()) {
    say(translated("Nothing to do: %s already lists \"publishing\".", nameOf(state.backends)));
  }
  if (!options.json) qt.tell();
  warnOf(state);
  qt.warnOfFaults();
  if (state.isListed()) return qtStatus;
  warn(
      translated("%s has another list, which takes precedence: gtk-print-backends=%s. Add "
                 "\"publishing\" there.",
                 nameOf(state.backends), shown(state.backends.list)));
  return kRefused;
}

ExitStatus runDisable(const ExtensionOptions& options) {
  const auto places = GtkSettingsPlaces::here();
  const GtkSettingsFile file = fileOf(places, options);
  const Change change = file.disable();
  const State state = stateOf(places, options);
  QtExtension qt(options.system, remedyOf(options));
  const ExitStatus qtStatus = qt.disable();
  if (options.json) {
    writeChange(file.path(), change, state, qt);
  } else if (change == Change::Written) {
    say(translated("%s: the print backend \"publishing\" was removed.", shown(file.path())));
  } else if (change == Change::Removed) {
    say(translated("%s was removed: it contained nothing but the print backend \"publishing\".",
                   shown(file.path())));
  } else {
    say(translated("Nothing to do: %s does not list \"publishing\".", shown(file.path())));
  }
  if (!options.json) qt.tell();
  for (const std::string& warning : state.backends.warnings)
    warn(warning);
  qt.warnOfFaults();
  if (!state.isListed()) return qtStatus;
  warn(options.system
           ? translated("%s still lists \"publishing\". Remove it there.", nameOf(state.backends))
           : translated("The panel is still on, because %s lists \"publishing\". To switch it off "
                        "for all users: sudo publishing extension disable --system. To switch it "
                        "off for yourself: Extension=false in the group [Dialog] of %s.",
                        nameOf(state.backends), userConfigFolder() + "/" PUBLISHING_RULES_FILE));
  return kRefused;
}

ExitStatus runStatus(const ExtensionOptions& options) {
  const State state = stateOf(GtkSettingsPlaces::here(), options);
  const QtExtension qt(options.system, remedyOf(options));
  if (options.json) {
    sayJson(asJson(state, qt));
  } else {
    say(translated(state.isListed() ? N_("enabled by %s: gtk-print-backends=%s")
                                    : N_("not enabled by %s: gtk-print-backends=%s"),
                   nameOf(state.backends), shown(state.backends.list)));
    if (state.library) say(translated("library: %s", shown(*state.library)));
    qt.tell();
  }
  warnOf(state);
  return kDone;
}

}  // namespace

void addExtensionCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<ExtensionOptions>();
  CLI::App* extension =
      app.add_subcommand("extension", translated("The panel in the print dialogs of all programs"));
  extension->require_subcommand(1);
  const auto add = [&](const char* name, const std::string& help, auto run) {
    CLI::App* command = extension->add_subcommand(name, help);
    command->add_flag("--system", options->system, translated("For all users, not just for you"));
    command->add_flag("--json", options->json, translated("Write the result as JSON"));
    command->callback([options, run, &status] { status = run(*options); });
  };
  add("enable", translated("Switch the panel on"), runEnable);
  add("disable", translated("Switch the panel off; undo enable"), runDisable);
  add("status", translated("Show whether the panel is on, and what is missing"), runStatus);
}

}  // namespace publishing
