// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/SettingsCommand.h"

#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "printing/PrintServer.h"
#include "printing/StoredSettings.h"
#include "programs/commands/Arguments.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

using nlohmann::json;

struct SettingsOptions {
  std::optional<std::string> queue;
  bool json = false;
};

// Stored settings outlive their queue, so a queue that is named is not looked up on the server.
std::string queueOf(const SettingsOptions& options) {
  if (!options.queue) return findDefaultQueue(connectToServer().get())->name;
  return QueueName::parse(*options.queue).queue;
}

ExitStatus runShow(const SettingsOptions& options) {
  const std::string queue = queueOf(options);
  const StoredSettings::Loaded loaded = StoredSettings().load(queue);
  for (const std::string& warning : loaded.warnings)
    warn(warning);
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
  };
  add("show", translated("Show the stored settings"), runShow);
  add("clear", translated("Forget the stored settings"), runClear);
}

}  // namespace publishing
