// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/SettingsCommand.h"

#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "printing/PrintServer.h"
#include "printing/Remembering.h"
#include "printing/StoredSettings.h"
#include "programs/commands/Arguments.h"
#include "programs/terminal/Terminal.h"
#include "shells/HostRules.h"

namespace publishing {
namespace {

using nlohmann::json;

constexpr const char* kOnWord = "on";
constexpr const char* kOffWord = "off";

struct SettingsOptions {
  std::optional<std::string> queue;
  std::optional<std::string> state;  // kOnWord or kOffWord
  bool json = false;
};

// Stored settings outlive their queue, so a queue that is named is not looked up on the server.
std::string queueOf(const SettingsOptions& options) {
  if (!options.queue) return findDefaultQueue(connectToServer().get())->name;
  return QueueName::parse(*options.queue).queue;
}

void tellRule() {
  const std::string against = HostRules::load().againstRemembering();
  if (!against.empty()) warn(against);
}

ExitStatus runShow(const SettingsOptions& options) {
  const std::string queue = queueOf(options);
  const StoredSettings::Loaded loaded = StoredSettings().load(queue);
  for (const std::string& warning : loaded.warnings)
    warn(warning);
  tellRule();
  if (options.json) {
    sayJson(json({{"queue", queue}, {"settings", loaded.values}}));
    return kDone;
  }
  for (const auto& [key, value] : loaded.values)
    say(key + '=' + value);
  if (loaded.values.empty()) {
    warn(translated("Nothing is stored for %s.", queue));
  }
  return kDone;
}

ExitStatus runClear(const SettingsOptions& options) {
  const std::string queue = queueOf(options);
  const bool cleared = StoredSettings().clear(queue);
  if (options.json) {
    sayJson(json({{"queue", queue}, {"cleared", cleared}}));
  } else {
    say(translated(
        cleared ? N_("The settings stored for %s were cleared.") : N_("Nothing was stored for %s."),
        queue));
  }
  return kDone;
}

// What is stored stays when it is switched on: then nobody has switched it off, or nothing is.
ExitStatus runRemember(const SettingsOptions& options) {
  const std::string queue = queueOf(options);
  const StoredSettings store;
  const bool on = options.state == kOnWord;
  if (!on) {
    switchOffRemembering(store, queue);
  } else if (isSwitchedOff(store.load(queue).values)) {
    static_cast<void>(store.clear(queue));
  }
  tellRule();
  if (options.json) {
    sayJson(json({{"queue", queue}, {"remember", on}}));
  } else {
    say(translated(on ? N_("Choices for %s are remembered from now on.")
                      : N_("Choices for %s are forgotten, and not remembered any more."),
                   queue));
  }
  return kDone;
}

}  // namespace

void addSettingsCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<SettingsOptions>();
  CLI::App* settings =
      app.add_subcommand("settings", translated("Show or clear what is remembered for a queue"));
  settings->require_subcommand(1);
  const auto add = [&](const char* name, const std::string& help, auto run) {
    CLI::App* command = settings->add_subcommand(name, help);
    addText(*command, "-d,--printer", options->queue,
            translated("Print queue (default: your default queue)"))
        ->type_name("QUEUE");
    command->add_flag("--json", options->json, translated("Write the result as JSON"));
    command->callback([options, run, &status] { status = run(*options); });
    return command;
  };
  add("show", translated("Show the stored settings"), runShow);
  add("clear", translated("Forget the stored settings"), runClear);
  CLI::App* remember =
      add("remember", translated("Say whether the print dialog remembers choices"), runRemember);
  addWord(*remember, "STATE", options->state, {kOnWord, kOffWord},
          translated("on, or off: forget the stored settings and remember nothing more"))
      ->required();
}

}  // namespace publishing
