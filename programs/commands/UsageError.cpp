// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/UsageError.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/Translation.h"

namespace publishing {
namespace {

using Words = std::vector<std::string>;

// How many letters have to be changed, added, taken out or exchanged with their neighbour.
std::size_t distance(const std::string& left, const std::string& right) {
  std::vector<std::vector<std::size_t>> table(left.size() + 1,
                                              std::vector<std::size_t>(right.size() + 1));
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      if (i == 0 || j == 0) {
        table[i][j] = i + j;
        continue;
      }
      const std::size_t change = left[i - 1] == right[j - 1] ? 0 : 1;
      table[i][j] =
          std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, table[i - 1][j - 1] + change});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
      }
    }
  }
  return table[left.size()][right.size()];
}

// The known word that was probably meant; empty when none is near.
std::string nearest(const std::string& word, const Words& known) {
  constexpr std::size_t kMostFaults = 2;
  constexpr std::size_t kLongestWord = 40;
  std::string best;
  std::size_t least = kMostFaults + 1;
  if (word.size() > kLongestWord) return best;
  for (const std::string& candidate : known) {
    const std::size_t faults = distance(word, candidate);
    if (faults >= least || faults >= candidate.size()) continue;
    least = faults;
    best = candidate;
  }
  return best;
}

// The innermost command that was named.
const CLI::App& namedCommand(const CLI::App& app) {
  const auto commands = app.get_subcommands();
  return commands.empty() ? app : namedCommand(*commands.front());
}

std::string pathOf(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return (parent == nullptr ? "" : pathOf(*parent) + " ") + command.get_name();
}

Words commandsOf(const CLI::App& command) {
  Words names;
  for (const CLI::App* known : command.get_subcommands([](const CLI::App*) { return true; }))
    names.push_back(known->get_name());
  return names;
}

Words optionsOf(const CLI::App& command) {
  Words names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames())
      names.push_back("--" + name);
  }
  return names;
}

std::string guess(const std::string& word, const Words& known) {
  const std::string meant = nearest(word, known);
  return meant.empty() ? "" : " " + translated("Did you mean %s?", meant);
}

std::string unknownWord(const CLI::App& command, const std::string& word) {
  if (word.starts_with('-')) {
    const std::string name = word.substr(0, word.find('='));
    return translated("There is no option %s.", shown(name)) + guess(name, optionsOf(command));
  }
  const Words commands = commandsOf(command);
  if (commands.empty()) return translated("\"%s\" is one word too many.", shown(word));
  return translated("There is no command \"%s\".", shown(word)) + guess(word, commands);
}

std::string missingCommand(const CLI::App& command) {
  std::string names;
  for (const std::string& name : commandsOf(command))
    names += (names.empty() ? "" : ", ") + name;
  return translated("Name a command: %s.", names);
}

// The option that a message of the parser begins with.
std::string firstWordOf(const CLI::ParseError& error) {
  const std::string message = error.what();
  return message.substr(0, message.find_first_of(": "));
}

std::string messageFor(const CLI::App& command, const CLI::ParseError& error) {
  const Words unknown = command.remaining();
  if (!unknown.empty()) return unknownWord(command, unknown.front());
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    const bool isLast = commandsOf(command).empty();
    return isLast ? translated("%s is missing.", firstWordOf(error)) : missingCommand(command);
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
    return translated("%s needs exactly one value.", firstWordOf(error));
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    const std::string message = error.what();
    return translated("%s and %s exclude each other.", firstWordOf(error),
                      message.substr(message.rfind(' ') + 1));
  }
  return shown(error.what());
}

}  // namespace

PrintError usageError(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = namedCommand(app);
  return PrintError::usage(messageFor(command, error) + '\n' +
                           translated("Help: %s", pathOf(command) + " --help"));
}

}  // namespace publishing
