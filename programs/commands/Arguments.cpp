// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/Arguments.h"

#include <algorithm>
#include <charconv>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr const char* kNone = "none";

// "-n,--copies" is called --copies, and an argument that is no option as it stands.
std::string longName(const std::string& names) {
  const std::size_t dashes = names.find("--");
  return dashes != std::string::npos ? names.substr(dashes) : names;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words)
    text += (text.empty() ? "" : ", ") + word;
  return text;
}

bool contains(const std::vector<std::string>& words, const std::string& word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

void checkWord(const std::string& option, const std::string& word,
               const std::vector<std::string>& words) {
  if (contains(words, word)) return;
  throw PrintError::usage(
      translated("%s does not take \"%s\". It takes: %s.", option, shown(word), joined(words)));
}

std::vector<std::string> splitAtCommas(const std::string& text) {
  std::vector<std::string> words;
  std::size_t begin = 0;
  for (std::size_t comma = text.find(','); comma != text.npos; comma = text.find(',', begin)) {
    words.push_back(text.substr(begin, comma - begin));
    begin = comma + 1;
  }
  words.push_back(text.substr(begin));
  return words;
}

}  // namespace

std::optional<int> wholeNumber(const std::string& text) {
  int number = 0;
  const char* end = text.data() + text.size();
  if (text.empty() || text.front() == '-') return std::nullopt;
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

CLI::Option* addText(CLI::App& command, const std::string& names, std::optional<std::string>& value,
                     const std::string& help) {
  return command.add_option_function<std::string>(
      names, [&value](const std::string& text) { value = text; }, help);
}

CLI::Option* addWord(CLI::App& command, const std::string& names, std::optional<std::string>& value,
                     const std::vector<std::string>& words, const std::string& help) {
  const auto take = [&value, words, name = longName(names)](const std::string& text) {
    checkWord(name, text, words);
    value = text;
  };
  return command.add_option_function<std::string>(names, take, help);
}

CLI::Option* addWords(CLI::App& command, const std::string& names,
                      std::optional<std::vector<std::string>>& value,
                      const std::vector<std::string>& words, const std::string& help) {
  const auto take = [&value, words, name = longName(names)](const std::string& text) {
    value.emplace();
    if (text == kNone) return;
    std::vector<std::string> known = words;
    known.emplace_back(kNone);
    for (const std::string& word : splitAtCommas(text)) {
      checkWord(name, word, known);
      if (word == kNone) {
        throw PrintError::usage(translated("%s takes either \"none\" or a list of sides.", name));
      }
      value->push_back(word);
    }
  };
  return command.add_option_function<std::string>(names, take, help)->type_name("SIDE,...");
}

CLI::Option* addNumber(CLI::App& command, const std::string& names, std::optional<int>& value,
                       const std::string& help) {
  const auto take = [&value, name = longName(names)](const std::string& text) {
    value = wholeNumber(text);
    if (value) return;
    throw PrintError::usage(translated("%s needs a whole number, not \"%s\".", name, shown(text)));
  };
  return command.add_option_function<std::string>(names, take, help)->type_name("N");
}

}  // namespace publishing
