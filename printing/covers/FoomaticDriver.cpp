// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/FoomaticDriver.h"

#include <utility>

namespace publishing {
namespace {

constexpr auto npos = std::string::npos;

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t place = text.find(from); place != npos; place = text.find(from, place))
    text.replace(place, from.size(), to), place += to.size();
}

// Values have their quotes and angle brackets as entities; "&&" at the end of a line joins it with
// the next one.
std::string decoded(std::string_view value) {
  constexpr std::pair<std::string_view, std::string_view> kWritten[] = {
      {"&&\r\n", ""},   {"&&\n", ""},  {"&&\r", ""},  {"&apos;", "'"},
      {"&quot;", "\""}, {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}};
  std::string text(value);
  for (const auto& [from, to] : kWritten)
    replaceAll(text, from, to);
  return text;
}

// Where the quoted part of a shell command ends that begins at `begin`.
std::size_t endOfQuotes(const std::string& command, std::size_t begin) {
  const char quote = command[begin];
  for (std::size_t place = begin + 1; place < command.size(); ++place) {
    if (command[place] == '\\' && quote == '"') {
      ++place;
    } else if (command[place] == quote) {
      return place;
    }
  }
  return command.size();
}

// The first word of each simple command of a shell command line: without "NAME=value" before it and
// without the places where foomatic-rip inserts the options ("cat%A%B").
std::set<std::string> programsIn(const std::string& command) {
  std::set<std::string> programs;
  std::string word;
  bool found = false;
  const auto endWord = [&] {
    word.resize(std::min(word.find('%'), word.size()));
    if (found || word.empty() || word.find('=') != npos) return word.clear();
    programs.insert(std::exchange(word, {}));
    found = true;
  };
  for (std::size_t place = 0; place < command.size(); ++place) {
    const char byte = command[place];
    if (std::string_view("|;&()\n\r`").find(byte) != npos) {
      endWord();
      found = false;
    } else if (byte == ' ' || byte == '\t') {
      endWord();
    } else if (byte == '\'' || byte == '"') {
      const std::size_t end = endOfQuotes(command, place);
      word += command.substr(place, end - place + 1);
      place = end;
    } else {
      word += byte;
    }
  }
  endWord();
  return programs;
}

}  // namespace

FoomaticDriver::FoomaticDriver(const std::vector<PPDStatement>& statements) {
  for (const PPDStatement& statement : statements) {
    if (statement.keyword == "FoomaticRIPCommandLine") {
      commandLine_ = decoded(statement.value);
      readDevices(commandLine_);
    } else if (statement.keyword == "FoomaticRIPOption") {
      const auto words = wordsOf(statement.value);  // "enum CmdLine A"
      if (words.size() > 1) styles_[std::string(statement.option)] = words[1];
    } else if (statement.keyword == "FoomaticRIPOptionSetting") {
      std::string& setting = settings_[std::string(statement.option)];
      setting = decoded(statement.value);
      readDevices(setting);
    }
  }
  programs_ = programsIn(commandLine_);
}

std::optional<std::string> FoomaticDriver::styleOf(std::string_view option) const {
  const auto style = styles_.find(std::string(option));
  return style == styles_.end() ? std::nullopt : std::optional(style->second);
}

std::optional<std::string> FoomaticDriver::setting(std::string_view option,
                                                   std::string_view choice) const {
  const auto setting = settings_.find(std::string(option) + "=" + std::string(choice));
  return setting == settings_.end() ? std::nullopt : std::optional(setting->second);
}

void FoomaticDriver::readDevices(const std::string& text) {
  constexpr std::string_view kDevice = "-sDEVICE=";
  for (std::size_t place = text.find(kDevice); place != npos; place = text.find(kDevice, place)) {
    place += kDevice.size();
    devices_.insert(text.substr(place, text.find_first_of(" \t\r\n%|;)\"'", place) - place));
  }
}

}  // namespace publishing
