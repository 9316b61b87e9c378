// SPDX-License-Identifier: Apache-2.0
// Options of a command line that say in the user's language what is wrong with their value. All
// throw PrintError (Usage) while the command line is parsed; the values must outlive that.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace publishing {

// An option that takes one text, which may be empty.
CLI::Option* addText(CLI::App& command, const std::string& names, std::optional<std::string>& value,
                     const std::string& help);

// An option that takes one of the words.
CLI::Option* addWord(CLI::App& command, const std::string& names, std::optional<std::string>& value,
                     const std::vector<std::string>& words, const std::string& help);

// An option that takes words separated by commas, or "none" alone for no word.
CLI::Option* addWords(CLI::App& command, const std::string& names,
                      std::optional<std::vector<std::string>>& value,
                      const std::vector<std::string>& words, const std::string& help);

// An option that takes a whole number, in decimal digits alone.
CLI::Option* addNumber(CLI::App& command, const std::string& names, std::optional<int>& value,
                       const std::string& help);

// The number that the whole text is, in decimal digits; nothing for any other text.
std::optional<int> wholeNumber(const std::string& text);

}  // namespace publishing
