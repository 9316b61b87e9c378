#include "tests/tools/PanelScript.h"

#include <charconv>
#include <map>
#include <stdexcept>
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
        output_ << toLine({{"alert", alert}}) << '\n';
      })),
      host_(std::make_shared<ScriptHost>([this](const auto& option, const auto& choice) {
        output_ << toLine({{"push", {{"option", option}, {"choice", choice}}}}) << '\n';
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
  const auto [name, rest] = splitAtSpace(argument);
  const std::map<std::string, std::function<void()>> commands = {
      {"ppd", [&] { setPPD(argument); }},
      {"mark", [&] { host_->mark(name, rest); }},
      {"set", [&] { host_->printSettings().setValue(name, rest); }},
      {"unset", [&] { host_->printSettings().setValue(name, std::nullopt); }},
      {"duplex", [&] { setDuplex(argument); }},
      {"dictionary", [&] { setDictionary(argument); }},
      {"view", [&] { panel_->panelView(); }},
      {"show", [&] { panel_->willShow(); }},
      {"restore",
       [&] {
         const bool restored = panel_->restoreValuesAndReturnError();
         output_ << toLine({{"restore", restored}}) << '\n';
       }},
      {"save",
       [&] {
         const bool saved = panel_->saveValuesAndReturnError();
         output_ << toLine({{"save", saved}}) << '\n';
       }},
      {"click", [&] { stage_->click(known<CheckBox>(argument)); }},
      {"radio", [&] { stage_->clickRadioCell(number(argument)); }},
      {"choose", [&] { stage_->choose(known<PopUpButton>(name), number(rest)); }},
      {"type", [&] { stage_->type(argument); }},
      {"tab", [&] { stage_->selectTab(number(argument)); }},
      {"summary", [&] { dumpSummary(); }},
      {"dump", [&] { dump(); }},
  };
  const auto found = commands.find(command);
  if (found == commands.end()) throw std::runtime_error("unknown command '" + command + "'");
  found->second();
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
  output_ << toLine({{"controls", dumpControls(*panel_)},
                     {"fields", dumpFields(panel_->state())},
                     {"settings", host_->printSettings().values()}})
          << '\n';
}

void PanelScript::dumpSummary() {
  output_ << toLine({{"summary", panel_->summaryInfo()}}) << '\n';
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
