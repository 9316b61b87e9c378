// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoversPPD.h"

#include <algorithm>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/covers/CoverLines.h"

namespace publishing {
namespace {

using Statements = std::vector<PPDStatement>;

// Comments, which print servers and editors of PPDs leave where they are.
constexpr std::string_view kBegin = "*% Begin of the lines of publishing printer enable";
constexpr std::string_view kEnd = "*% End of the lines of publishing printer enable";
constexpr std::string_view kSetAside = "*%Publishing ";  // before a line of the driver

std::string_view bytesOf(std::string_view ppd, const PPDStatement& statement) {
  return ppd.substr(statement.begin, statement.end - statement.begin);
}

bool isMark(std::string_view line, std::string_view mark) {
  if (!line.starts_with(mark)) return false;
  return line.find_first_not_of("\r\n", mark.size()) == std::string_view::npos;
}

[[noreturn]] void throwDamaged() {
  throw PrintError::trouble(
      translated("Only a part of the lines that \"publishing printer enable\" added is "
                 "left in its PPD. Install the printer's PPD again (lpadmin -P)."));
}

// Calls `ours` for each of our lines, `aside` for each line of the driver that was set aside, and
// `other` for all else, in the order of the text.
template <class Ours, class Aside, class Other>
void readLines(std::string_view ppd, Ours ours, Aside aside, Other other) {
  bool inside = false;
  for (const PPDStatement& statement : statementsOf(ppd)) {
    const std::string_view line = bytesOf(ppd, statement);
    if (isMark(line, kBegin) || isMark(line, kEnd)) {
      if (isMark(line, kEnd) != inside) throwDamaged();
      inside = !inside;
    } else if (inside) {
      ours(statement);
    } else if (line.starts_with(kSetAside)) {
      aside(line.substr(kSetAside.size()));
    } else {
      other(line);
    }
  }
  if (inside) throwDamaged();
}

std::string restored(std::string_view ppd) {
  std::string text;
  const auto keep = [&text](std::string_view line) { text += line; };
  readLines(
      ppd, [](const PPDStatement&) {}, keep, keep);
  return text;
}

bool hasOurLines(std::string_view ppd) {
  bool found = false;
  readLines(
      ppd, [&found](const PPDStatement&) { found = true; }, [](std::string_view) {},
      [](std::string_view) {});
  return found;
}

// The filter lines that others added beside ours.
std::string bypassIn(std::string_view ppd) {
  std::string others;
  std::string bypass;
  readLines(
      ppd, [](const PPDStatement&) {}, [](std::string_view) {},
      [&](std::string_view line) { others += line; });
  const std::vector<PPDStatement> statements = statementsOf(others);
  for (const FilterLine& line : filterLinesOf(statements)) {
    if (!staysInForce(line)) bypass = bytesOf(others, *line.statement);
  }
  return bypass;
}

// Behind the options that ours are made from, and so in their group and behind the line that tells
// the encoding of texts.
std::size_t placeFor(std::string_view ppd, const PPDMedia& media) {
  const std::size_t place = std::max(media.types.end, media.trays.end);
  if (place > 0 && (ppd[place - 1] == '\n' || ppd[place - 1] == '\r')) return place;
  throw PrintError::refused(
      translated("Its PPD ends in the middle of an option. Install the printer's PPD "
                 "again (lpadmin -P)."));
}

[[noreturn]] void throwUnsafe() {
  throw PrintError::refused(
      translated("Its PPD is written in a way that cannot be changed safely."));
}

bool isOneLine(std::string_view line) {
  const std::size_t end = line.find_first_of("\r\n");
  return end == std::string_view::npos || line.size() - end <= 2;
}

std::string extended(const std::string& ppd, const Statements& statements, const PPDMedia& media,
                     const PrinterVerdict& verdict) {
  const std::string_view lineEnd = lineEndOf(ppd);
  const std::size_t place = placeFor(ppd, media);
  std::string block(kBegin);
  block.append(lineEnd).append(coverLines(statements, media, verdict, lineEnd));
  block.append(kEnd).append(lineEnd);
  std::vector<std::size_t> aside;
  for (const FilterLine& line : filterLinesOf(statements)) {
    if (staysInForce(line)) continue;
    if (!isOneLine(bytesOf(ppd, *line.statement))) throwUnsafe();
    aside.push_back(line.statement->begin);
  }
  std::string text;
  for (const PPDStatement& statement : statements) {
    if (statement.begin == place) text += block;
    if (std::find(aside.begin(), aside.end(), statement.begin) != aside.end()) text += kSetAside;
    text += bytesOf(ppd, statement);
  }
  return place == ppd.size() ? text + block : text;
}

}  // namespace

CoversState coversStateOf(std::string_view ppd) {
  CoversState state;
  state.enabled = hasOurLines(ppd);
  const std::string bare = restored(ppd);
  const Statements statements = statementsOf(bare);
  state.verdict = verdictOn(statements, mediaOf(statements));
  if (state.enabled) state.bypass = bypassIn(ppd);
  return state;
}

std::string withCovers(const std::string& ppd) {
  const CoversState state = coversStateOf(ppd);
  if (state.enabled && state.bypass.empty()) return ppd;
  if (!state.verdict.reason.empty()) throw PrintError::refused(state.verdict.reason);
  const std::string bare = restored(ppd);
  const Statements statements = statementsOf(bare);
  std::string text = extended(bare, statements, mediaOf(statements), state.verdict);
  // Quotes that do not match can make lines of ours a part of another value.
  if (restored(text) != bare) throwUnsafe();
  return text;
}

std::string withoutCovers(const std::string& ppd) {
  return restored(ppd);
}

}  // namespace publishing
