// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/Report.h"

#include <functional>

namespace publishing::corpus {
namespace {

struct Row {
  const char* title;
  std::function<Count(const Tally&)> value;
};

const std::vector<Row>& rows() {
  static const std::vector<Row> all{
      {"files", [](const Tally& tally) { return tally.files; }},
      {"files that libcups cannot open",
       [](const Tally& tally) { return static_cast<Count>(tally.unopened.size()); }},
      {"files above 100 KB", [](const Tally& tally) { return tally.largeFiles; }},
      {"largest file (bytes)", [](const Tally& tally) { return tally.largestFile; }},
      {"options", [](const Tally& tally) { return tally.options; }},
      {"options repeated in another group",
       [](const Tally& tally) { return tally.repeatedOptions; }},
      {"choices", [](const Tally& tally) { return tally.choices; }},
      {"marks compared", [](const Tally& tally) { return tally.marks; }},
      {"catalogue or mark unlike libcups's",
       [](const Tally& tally) { return static_cast<Count>(tally.wrong.size()); }},
      {"constraints", [](const Tally& tally) { return tally.constraints; }},
      {"constraints on InputSlot", [](const Tally& tally) { return tally.trayConstraints; }},
      {"... without a choice on one side",
       [](const Tally& tally) { return tally.openTrayConstraints; }},
      {"files with a constraint on InputSlot", [](const Tally& tally) { return tally.trayFiles; }},
      {"... with one in one direction only", [](const Tally& tally) { return tally.oneWayFiles; }},
      {"queries (a tray, a state of the marks)", [](const Tally& tally) { return tally.queries; }},
      {"forbidden by the panel", [](const Tally& tally) { return tally.forbiddenByPanel; }},
      {"forbidden by libcups", [](const Tally& tally) { return tally.forbiddenByCups; }},
      {"unequal answers", [](const Tally& tally) { return tally.unequalAnswers; }},
  };
  return all;
}

void writeCounts(std::ostream& out, const std::map<std::string, Tally>& packages,
                 const Tally& all) {
  out << "| |";
  for (const auto& [package, tally] : packages)
    out << ' ' << package << " |";
  out << " all |\n|---|";
  for (std::size_t column = 0; column <= packages.size(); ++column)
    out << "---:|";
  out << '\n';
  for (const Row& row : rows()) {
    out << "| " << row.title << " |";
    for (const auto& [package, tally] : packages)
      out << ' ' << row.value(tally) << " |";
    out << ' ' << row.value(all) << " |\n";
  }
}

void writeDifferences(std::ostream& out, const Tally& all) {
  out << "\n| difference | choices | unequal answers | files |\n|---|---:|---:|---:|\n";
  for (const Difference difference : kDifferences) {
    const auto found = all.differences.find(difference);
    const Differences counts = found != all.differences.end() ? found->second : Differences{};
    out << "| " << nameOf(difference) << " | " << counts.choices << " | " << counts.answers << " | "
        << counts.files.size() << " |\n";
  }
}

void writeList(std::ostream& out, const char* title, const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  out << '\n' << title << ":\n\n";
  for (const std::string& line : lines)
    out << "- " << line << '\n';
}

}  // namespace

void writeReport(std::ostream& out, const std::map<std::string, Tally>& packages) {
  Tally all;
  for (const auto& [package, tally] : packages)
    all += tally;
  writeCounts(out, packages, all);
  writeDifferences(out, all);
  writeList(out, "Not opened", all.unopened);
  writeList(out, "Unlike libcups", all.wrong);
  const auto unexplained = all.differences.find(Difference::Unexplained);
  if (unexplained == all.differences.end()) return;
  writeList(out, "Unexplained",
            {unexplained->second.files.begin(), unexplained->second.files.end()});
}

}  // namespace publishing::corpus
