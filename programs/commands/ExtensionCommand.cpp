// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/ExtensionCommand.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "programs/commands/Arguments.h"
#include "programs/commands/GtkExtension.h"
#include "programs/commands/QtExtension.h"
#include "programs/terminal/Terminal.h"
#include "shells/ExtensionNames.h"
#include "shells/HostRules.h"

namespace publishing {
namespace {

using nlohmann::json;

struct ExtensionOptions {
  bool system = false;
  bool json = false;
  std::optional<std::string> toolkit;  // for all when there is none

  [[nodiscard]] bool wants(const char* name) const { return !toolkit || *toolkit == name; }
};

std::string remedyOf(const ExtensionOptions& options) {
  return options.system
             ? translated(
                   "It belongs to the administrator: put \"sudo\" before the command; "
                   "nothing was changed.")
             : translated("Make sure that you own it and may write to it; nothing was changed.");
}

std::optional<std::string> whatSwitchesOff() {
  const HostRules rules = HostRules::load();
  if (rules.extension) return std::nullopt;
  return std::getenv(PUBLISHING_SWITCH) != nullptr ? PUBLISHING_SWITCH : shown(rules.file);
}

// The panel in the programs of each toolkit.
struct Extensions {
  explicit Extensions(const ExtensionOptions& options)
      : gtk3(GtkVersion::Gtk3, options.system, remedyOf(options)),
        gtk4(GtkVersion::Gtk4, options.system, remedyOf(options)),
        qt(options.system, remedyOf(options)) {}

  // Does it with those that are asked for, in this order; the worst status counts.
  ExitStatus change(const ExtensionOptions& options, const auto& how) {
    ExitStatus status = kDone;
    if (options.wants("gtk3")) status = std::max(status, how(gtk3));
    if (options.wants("gtk4")) status = std::max(status, how(gtk4));
    if (options.wants("qt")) status = std::max(status, how(qt));
    return status;
  }

  [[nodiscard]] json asJson() const;

  GtkExtension gtk3;
  GtkExtension gtk4;
  QtExtension qt;
  std::optional<std::string> switchedOffBy = whatSwitchesOff();
};

// GTK 3 was all that there was: its state stays in the result itself.
json Extensions::asJson() const {
  json result = gtk3.asJson();
  result["switchedOffBy"] = switchedOffBy ? json(*switchedOffBy) : json(nullptr);
  json toolkits = {
      {"gtk3",
       {{"enabled", result["enabled"]}, {"file", result["file"]}, {"works", result["works"]}}},
      {"gtk4", gtk4.asJson()},
      {"qt", qt.asJson()}};
  if (switchedOffBy) {
    result["works"] = false;
    for (json& toolkit : toolkits)
      toolkit["works"] = false;
  }
  result["toolkits"] = std::move(toolkits);
  return result;
}

ExitStatus runChange(const ExtensionOptions& options, Extensions& extensions, const auto& how) {
  const ExitStatus status = extensions.change(options, how);
  if (options.json) sayJson(extensions.asJson());
  (void)extensions.change(options, [&](const auto& extension) {
    if (!options.json) extension.tell();
    extension.warnOfFaults();
    return kDone;
  });
  return status;
}

void warnOfSwitch(const Extensions& extensions) {
  if (!extensions.switchedOffBy) return;
  warn(translated("%s still switches the panel off.", *extensions.switchedOffBy));
}

ExitStatus runEnable(const ExtensionOptions& options) {
  Extensions extensions(options);
  const ExitStatus status =
      runChange(options, extensions, [](auto& extension) { return extension.enable(); });
  warnOfSwitch(extensions);
  return status;
}

ExitStatus runDisable(const ExtensionOptions& options) {
  Extensions extensions(options);
  return runChange(options, extensions, [](auto& extension) { return extension.disable(); });
}

ExitStatus runStatus(const ExtensionOptions& options) {
  Extensions extensions(options);
  if (options.json) sayJson(extensions.asJson());
  (void)extensions.change(options, [&](const auto& extension) {
    if (!options.json) extension.tellState();
    extension.warnOfFaults();
    return kDone;
  });
  warnOfSwitch(extensions);
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
    addWord(*command, "--toolkit", options->toolkit, {"gtk3", "gtk4", "qt"},
            translated("For programs with this toolkit alone: gtk3, gtk4 or qt"))
        ->type_name("TOOLKIT");
    command->callback([options, run, &status] { status = run(*options); });
  };
  add("enable", translated("Switch the panel on"), runEnable);
  add("disable", translated("Switch the panel off; undo enable"), runDisable);
  add("status", translated("Show whether the panel is on, and what is missing"), runStatus);
}

}  // namespace publishing
