// SPDX-License-Identifier: Apache-2.0
#include "tests/support/PanelScript.h"

#include <charconv>
#include <stdexcept>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "shells/PanelDump.h"

namespace publishing {
namespace {

using nlohmann::json;

// The text before the first space and the text after it.
std::pair<std::string, std::string> splitAtSpace(const std::string& text) {
  const std::size_t space = text.find(' ');
  if (space == std::string::npos) return {text, ""};
  return {text.substr(0, space), text.substr(space + 1)};
}

std::int64_t number(const std::string& text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw std::runtime_error("'" + text + "' is not a number");
  }
  return value;
}

}  // namespace

PanelScript::PanelScript(const StageFactory& makeStage, std::ostream& output)
    : output_(output),
      stage_(makeStage([this](const auto& title, const auto& message, const auto& button) {
        const json alert = {{"title", title}, {"message", message}, {"button", button}};
        output_ << jsonLine({{"alert", alert}}) << '\n';
      })),
      host_(std::make_shared<ScriptHost>([this](const auto& option, const auto& choice) {
        output_ << jsonLine({{"push", {{"option", option}, {"choice", choice}}}}) << '\n';
      })) {
  plugin_.initWithBundle(stage_->bundle());
  panel_ = plugin_.PDEPanelsForType(kPrinterModulePanelType, host_)->front();
}

void PanelScript::run(std::istream& commands) {
  std::string line;
  for (int number = 1; std::getline(commands, line); ++number) {
    try {
      runLine(line);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
    }
  }
}

void PanelScript::runLine(const std::string& line) {
  if (line.empty() || line.front() == '#') return;
  const auto [command, argument] = splitAtSpace(line);
  perform(command, argument);
}

void PanelScript::perform(const std::string& command, const std::string& argument) {
  using Perform = void (*)(PanelScript&, const std::string& argument);
  static const std::unordered_map<std::string_view, Perform> commands = {
      {"ppd", [](auto& script, const auto& file) { script.setPPD(file); }},
      {"mark", [](auto& script, const auto& marking) { script.mark(marking); }},
      {"set", [](auto& script, const auto& setting) { script.set(setting); }},
      {"unset", [](auto& script, const auto& key) { script.unset(key); }},
      {"duplex", [](auto& script, const auto& mode) { script.setDuplex(mode); }},
      {"dictionary", [](auto& script, const auto& outcome) { script.setDictionary(outcome); }},
      {"view", [](auto& script, const auto&) { script.panel_->panelView(); }},
      {"show", [](auto& script, const auto&) { script.panel_->willShow(); }},
      {"restore", [](auto& script, const auto&) { script.restore(); }},
      {"save", [](auto& script, const auto&) { script.save(); }},
      {"click", [](auto& script, const auto& name) { script.click(name); }},
      {"radio", [](auto& script, const auto& column) { script.clickRadioCell(column); }},
      {"choose", [](auto& script, const auto& item) { script.choose(item); }},
      {"type", [](auto& script, const auto& text) { script.stage_->type(text); }},
      {"tab", [](auto& script, const auto& index) { script.selectTab(index); }},
      {"summary", [](auto& script, const auto&) { script.dumpSummary(); }},
      {"dump", [](auto& script, const auto&) { script.dump(); }},
  };
  const auto found = commands.find(command);
  if (found == commands.end()) throw std::runtime_error("unknown command '" + command + "'");
  found->second(*this, argument);
}

void PanelScript::mark(const std::string& marking) {
  const auto [option, choice] = splitAtSpace(marking);
  host_->mark(option, choice);
}

void PanelScript::set(const std::string& setting) {
  const auto [key, value] = splitAtSpace(setting);
  host_->printSettings().setValue(key, value);
}

void PanelScript::unset(const std::string& key) {
  host_->printSettings().setValue(key, std::nullopt);
}

void PanelScript::restore() {
  const bool restored = panel_->restoreValuesAndReturnError();
  output_ << jsonLine({{"restore", restored}}) << '\n';
}

void PanelScript::save() {
  const bool saved = panel_->saveValuesAndReturnError();
  output_ << jsonLine({{"save", saved}}) << '\n';
}

void PanelScript::click(const std::string& name) {
  stage_->click(known<CheckBox>(name));
}

void PanelScript::clickRadioCell(const std::string& column) {
  stage_->clickRadioCell(number(column));
}

void PanelScript::choose(const std::string& item) {
  const auto [name, index] = splitAtSpace(item);
  stage_->choose(known<PopUpButton>(name), number(index));
}

void PanelScript::selectTab(const std::string& index) {
  stage_->selectTab(number(index));
}

void PanelScript::setPPD(const std::string& file) {
  if (file == "none") {
    host_->closePPD();
  } else if (!host_->openPPD(file)) {
    throw std::runtime_error("cannot open the PPD '" + file + "'");
  }
}

void PanelScript::setDuplex(const std::string& mode) {
  if (mode == "fail") {
    host_->printSettings().setDuplex(std::nullopt);
  } else {
    host_->printSettings().setDuplex(static_cast<std::int32_t>(number(mode)));
  }
}

void PanelScript::setDictionary(const std::string& outcome) {
  if (outcome != "ok" && outcome != "fail") {
    throw std::runtime_error("a dictionary is 'ok' or 'fail', not '" + outcome + "'");
  }
  host_->printSettings().setCopyFails(outcome == "fail");
}

void PanelScript::dump() {
  output_ << jsonLine({{"controls", dumpControls(*panel_)},
                       {"fields", dumpFields(panel_->state())},
                       {"settings", host_->printSettings().values()}})
          << '\n';
}

void PanelScript::dumpSummary() {
  output_ << jsonLine({{"summary", panel_->summaryInfo()}}) << '\n';
}

template <class ControlType>
const std::string& PanelScript::known(const std::string& name) const {
  for (const OutletBinding& binding : panel_->outlets()) {
    if (binding.name == name && std::holds_alternative<Outlet<ControlType>*>(binding.outlet)) {
      return name;
    }
  }
  throw std::runtime_error("the panel has no such control: '" + name + "'");
}

}  // namespace publishing
