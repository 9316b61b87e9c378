// SPDX-License-Identifier: Apache-2.0
#include "tests/programs/filter/FilterRun.h"

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace publishing {
namespace {

std::string quoted(const std::string& text) {
  std::string word = "'";
  for (const char byte : text)
    word += byte == '\'' ? std::string("'\\''") : std::string(1, byte);
  return word + "'";
}

std::string variables(const FilterRun& run) {
  return "export PPD=" + quoted(run.ppd) + " CONTENT_TYPE=" + run.contentType +
         " CUPS_SERVERBIN=\"${CUPS_SERVERBIN:-/usr/lib/cups}\" " + run.environment + "; ";
}

std::string arguments(const FilterRun& run, bool withFile) {
  return " 7 user title " + run.copies + " " + quoted(run.options) +
         (withFile && !run.throughPipe ? " " + quoted(run.document) : "");
}

std::string pipe(const FilterRun& run) {
  return run.throughPipe ? "cat " + quoted(run.document) + " | " : "";
}

Outcome shell(const std::string& script) {
  return runProgram({"/bin/bash", "-c", "set -o pipefail; " + script});
}

std::vector<std::string> sorted(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

void ghostscript(const std::string& device, const std::string& output, const std::string& input,
                 std::string& said) {
  const Outcome outcome =
      runProgram({"/bin/bash", "-c",
                  "gs -q -dNOPAUSE -dBATCH -sDEVICE=" + device + " -o " + output + " " + input});
  if (outcome.status != 0 || outcome.output.find("Error") != std::string::npos)
    throw std::runtime_error("Ghostscript: " + outcome.output + outcome.errors);
  said = outcome.output;
}

}  // namespace

Outcome runFilter(const FilterRun& run, const std::string& output) {
  return shell(variables(run) + run.before + pipe(run) + "exec " FILTER_PROGRAM +
               arguments(run, true) + " >" + quoted(output));
}

Outcome runCupsFilters(const FilterRun& run, const std::vector<std::string>& programs,
                       const std::string& output) {
  std::string line = variables(run) + pipe(run);
  for (const std::string& program : programs) {
    const bool isFirst = &program == &programs.front();
    line += (isFirst ? "" : " | ") + std::string("/usr/lib/cups/filter/") + program +
            arguments(run, isFirst);
  }
  return shell(line + " >" + quoted(output));
}

std::vector<std::string> printedSides(const std::string& postScript) {
  const TemporaryFolder folder;
  std::string said;
  ghostscript(
      "txtwrite", folder / "%05d",
      std::string(SOURCE_FOLDER) + "/tests/programs/filter/medium-of-sides.ps " + postScript, said);
  const std::regex pageNumber("Page +([0-9]+) ");
  const std::vector<std::string> files = sorted(folder.path());
  std::vector<std::string> sides;
  std::istringstream lines(said);
  std::size_t file = 0;
  for (std::string side, type, tray; lines >> side >> type >> tray && file < files.size(); ++file) {
    const std::string text = contentsOfFile(files[file]);
    std::smatch page;
    const bool isNamed = type.front() == '(';
    const std::string medium = isNamed ? type.substr(1, type.size() - 2) : tray;
    sides.push_back(medium + " " + (std::regex_search(text, page, pageNumber) ? page.str(1) : "-"));
  }
  return sides;
}

std::vector<std::string> pictures(const std::string& postScript) {
  const TemporaryFolder folder;
  std::string said;
  ghostscript("pgmraw -r36", folder / "%05d", postScript, said);
  std::vector<std::string> list;
  for (const std::string& file : sorted(folder.path()))
    list.push_back(std::to_string(std::hash<std::string>()(contentsOfFile(file))));
  return list;
}

std::string withoutDate(const std::string& file) {
  return std::regex_replace(contentsOfFile(file), std::regex("%%CreationDate: [^\n]*"), "");
}

}  // namespace publishing
