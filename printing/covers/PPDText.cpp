// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/PPDText.h"

#include <algorithm>

namespace publishing {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";
constexpr auto npos = std::string_view::npos;

bool isBlank(char byte) {
  return kBlanks.find(byte) != npos;
}

bool isComment(std::string_view line) {
  return line.starts_with("*%");
}

// Where the statement that begins at `begin` ends, its line end included.
std::size_t endOfStatement(std::string_view ppd, std::size_t begin) {
  const bool comment = isComment(ppd.substr(begin));
  bool hasColon = false;
  bool quoted = false;
  for (std::size_t place = begin; place < ppd.size(); ++place) {
    const char byte = ppd[place];
    if (byte == ':' && !comment) hasColon = true;
    if (byte == '"' && hasColon) quoted = !quoted;
    if ((byte != '\n' && byte != '\r') || quoted) continue;
    const bool two = byte == '\r' && place + 1 < ppd.size() && ppd[place + 1] == '\n';
    return place + (two ? 2 : 1);
  }
  return ppd.size();
}

// Cuts off and returns what stands before the first of the bytes.
std::string_view takenUntil(std::string_view& rest, std::string_view bytes) {
  const std::string_view taken = rest.substr(0, rest.find_first_of(bytes));
  rest.remove_prefix(taken.size());
  return taken;
}

void skipBlanks(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
}

std::string_view withoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view valueIn(std::string_view rest) {
  skipBlanks(rest);
  if (!rest.starts_with('"')) return withoutBlanksBehind(rest);
  rest.remove_prefix(1);
  return rest.substr(0, rest.find('"'));
}

PPDStatement statementAt(std::string_view ppd, std::size_t begin) {
  PPDStatement statement;
  statement.begin = begin;
  statement.end = endOfStatement(ppd, begin);
  std::string_view rest = ppd.substr(begin, statement.end - begin);
  if (!rest.starts_with('*') || isComment(rest)) return statement;
  rest.remove_prefix(1);
  statement.keyword = takenUntil(rest, ": \t\r\n\f\v");
  if (!rest.empty() && isBlank(rest.front())) {
    skipBlanks(rest);
    statement.option = takenUntil(rest, ":/ \t\r\n\f\v");
    skipBlanks(rest);
    if (rest.starts_with('/')) {
      rest.remove_prefix(1);
      statement.text = takenUntil(rest, ":\r\n");
    }
  }
  if (rest.starts_with(':')) statement.value = valueIn(rest.substr(1));
  return statement;
}

}  // namespace

std::vector<PPDStatement> statementsOf(std::string_view ppd) {
  std::vector<PPDStatement> statements;
  for (std::size_t place = 0; place < ppd.size(); place = statements.back().end)
    statements.push_back(statementAt(ppd, place));
  return statements;
}

std::string_view lineEndOf(std::string_view ppd) {
  const std::size_t place = ppd.find_first_of("\r\n");
  if (place == npos || ppd[place] == '\n') return "\n";
  return ppd.substr(place).starts_with("\r\n") ? "\r\n" : "\r";
}

std::vector<std::string_view> wordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  for (skipBlanks(text); !text.empty(); skipBlanks(text))
    words.push_back(takenUntil(text, kBlanks));
  return words;
}

bool sameKeyword(std::string_view left, std::string_view right) {
  const auto lower = [](char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
  };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](char one, char other) { return lower(one) == lower(other); });
}

}  // namespace publishing
