// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PresetCommand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/presets/PresetFile.h"
#include "printing/presets/Presets.h"
#include "programs/commands/Arguments.h"
#include "programs/commands/PreparedJob.h"
#include "programs/commands/PrintArguments.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

using nlohmann::json;

struct PresetOptions {
  std::string name;
  std::string file;
  std::optional<std::string> newName;
  bool force = false;
  PrintArguments choices;  // of save; json of all

  [[nodiscard]] Presets::Existing existing() const {
    return force ? Presets::Existing::Replace : Presets::Existing::Keep;
  }
};

json asJson(const Preset::Medium& medium) {
  if (medium.keyword.empty()) return nullptr;
  return {{"choice", medium.keyword}, {"text", medium.text}};
}

json asJson(const StoredPreset& stored) {
  const Preset& preset = stored.preset;
  return {{"name", preset.name},
          {"origin", stored.isShared ? "administrator" : "user"},
          {"file", stored.file},
          {"cover", preset.cover},
          {"coverMedia", asJson(preset.coverMedium)},
          {"coverSides", preset.coverSides},
          {"insert", preset.insert},
          {"insertMedia", asJson(preset.insertMedium)},
          {"insertSides", preset.insertSides}};
}

void warnAll(const std::vector<std::string>& warnings) {
  for (const std::string& warning : warnings)
    warn(warning);
}

void report(const PresetOptions& options, const json& result, const std::string& text) {
  if (options.choices.json) {
    sayJson(result);
  } else {
    say(text);
  }
}

ExitStatus runList(const PresetOptions& options) {
  const Presets::Listing listing = Presets().list();
  warnAll(listing.warnings);
  json presets = json::array();
  for (const StoredPreset& stored : listing.presets) {
    if (!options.choices.json) say(stored.preset.name);
    presets.push_back(asJson(stored));
  }
  if (options.choices.json) {
    sayJson(json({{"presets", presets}, {"warnings", listing.warnings}}));
  } else if (listing.presets.empty()) {
    warn(translated("There are no presets. Make one with: publishing preset save NAME"));
  }
  return kDone;
}

ExitStatus runShow(const PresetOptions& options) {
  const StoredPreset stored = Presets().find(options.name);
  warnAll(stored.warnings);
  report(options, {{"preset", asJson(stored)}, {"warnings", stored.warnings}},
         shownLines(textOf(stored.preset)) + "# " + shown(stored.file));
  return kDone;
}

// Stores it and tells about it. The hint is the command line's: a dialog asks instead.
ExitStatus store(const PresetOptions& options, const Preset& preset) {
  const Presets presets;
  try {
    presets.store(preset, options.existing());
  } catch (const PrintError& error) {
    const bool isKept = error.kind() == PrintError::Kind::Refused &&
                        options.existing() == Presets::Existing::Keep &&
                        presets.hasOwn(preset.name);
    if (!isKept) throw;
    throw PrintError::refused(std::string(error.what()) + ' ' +
                              translated("Choose another name, or replace it with --force."));
  }
  report(options, {{"preset", asJson(presets.find(preset.name))}},
         translated("The preset \"%s\" was saved.", preset.name));
  return kDone;
}

void checkSaysSomething(const PrintArguments& choices) {
  const PanelRequest& panel = choices.wishes.panel;
  if (choices.preset || panel.cover || panel.insert) return;
  throw PrintError::usage(
      translated("Say what the preset holds: give --cover, --insert or both, or --preset to start "
                 "from another one."));
}

// The choices are checked by the panel as those of a job are. Conflicts with other options are the
// business of the jobs that have those.
ExitStatus runSave(PresetOptions& options) {
  if (const auto fault = faultOfPresetName(options.name)) throw PrintError::usage(*fault);
  checkSaysSomething(options.choices);
  PrintArguments& choices = options.choices;
  choices.fresh = true;
  choices.dryRun = true;
  choices.ignoreConflicts = true;
  const PreparedJob job(choices);
  return store(options, presetOf(options.name, job.panelValues()));
}

ExitStatus runDelete(const PresetOptions& options) {
  const Presets presets;
  presets.remove(options.name);
  std::string text = translated("The preset \"%s\" was deleted.", options.name);
  if (const auto shared = presets.list().named(options.name)) {
    text += '\n' + translated("The administrator's preset of that name (%s) is used from now on.",
                              shown(shared->file));
  }
  report(options, {{"deleted", options.name}}, text);
  return kDone;
}

ExitStatus runExport(const PresetOptions& options) {
  const StoredPreset stored = Presets().find(options.name);
  warnAll(stored.warnings);
  try {
    exportPreset(stored.preset, options.file, options.existing());
  } catch (const PrintError& error) {
    if (error.kind() != PrintError::Kind::Refused) throw;
    throw PrintError::refused(std::string(error.what()) + ' ' +
                              translated("Name another file, or replace a file with --force."));
  }
  report(
      options, {{"preset", asJson(stored)}, {"exported", options.file}},
      translated("The preset \"%s\" was written to %s.", stored.preset.name, shown(options.file)));
  return kDone;
}

ExitStatus runImport(const PresetOptions& options) {
  ReadPreset read = readPresetFile(options.file);
  warnAll(read.warnings);
  if (options.newName) {
    if (const auto fault = faultOfPresetName(*options.newName)) throw PrintError::usage(*fault);
    read.preset.name = *options.newName;
  }
  return store(options, read.preset);
}

void addName(CLI::App& command, PresetOptions& options) {
  command.add_option("NAME", options.name, translated("The preset's name"))
      ->type_name("")
      ->required();
}

void addFile(CLI::App& command, PresetOptions& options, const std::string& help) {
  command.add_option("FILE", options.file, help)->type_name("")->required();
}

void addForce(CLI::App& command, PresetOptions& options, const std::string& help) {
  command.add_flag("--force", options.force, help);
}

}  // namespace

void addPresetCommand(CLI::App& app, ExitStatus& status) {
  auto options = std::make_shared<PresetOptions>();
  CLI::App* preset =
      app.add_subcommand("preset", translated("Covers and inserts kept under a name"));
  preset->require_subcommand(1);
  const auto add = [&](const char* name, const std::string& help, auto run) {
    CLI::App* command = preset->add_subcommand(name, help);
    command->add_flag("--json", options->choices.json, translated("Write the result as JSON"));
    command->callback([options, run, &status] { status = run(*options); });
    return command;
  };
  add("list", translated("List the presets"), runList);
  addName(*add("show", translated("Show what a preset holds"), runShow), *options);

  CLI::App* save = add("save", translated("Save covers and inserts as a preset"), runSave);
  addName(*save, *options);
  addPrinterArgument(*save, options->choices.printer);
  addSides(*save, options->choices.wishes.sides);
  addPanelOptions(*save, options->choices);
  addForce(*save, *options, translated("Replace a preset of that name"));

  addName(*add("delete", translated("Delete a preset of yours"), runDelete), *options);

  CLI::App* exporting =
      add("export", translated("Write a preset to a file, to give it to others"), runExport);
  addName(*exporting, *options);
  addFile(*exporting, *options, translated("The file to write"));
  addForce(*exporting, *options, translated("Replace the file"));

  CLI::App* import = add("import", translated("Take over a preset from a file"), runImport);
  addFile(*import, *options, translated("The file that was exported"));
  addText(*import, "--name", options->newName, translated("Give the preset this name"))
      ->type_name("NAME");
  addForce(*import, *options, translated("Replace a preset of that name"));
}

}  // namespace publishing
