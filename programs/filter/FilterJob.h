// SPDX-License-Identifier: Apache-2.0
// What the print server asks the filter to do.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace publishing {

// To CUPS the case of an option's name is all the same.
struct OptionNameLess {
  bool operator()(const std::string& left, const std::string& right) const;
};
using JobOptions = std::map<std::string, std::string, OptionNameLess>;

// The arguments of a CUPS filter.
struct FilterJob {
  std::string id;
  std::string user;
  std::string title;
  std::string copies;
  std::string options;
  std::optional<std::string> file;  // nothing: standard input

  // Nothing when there are too few or too many.
  static std::optional<FilterJob> fromArguments(int argc, char** argv);

  // 1 or more.
  [[nodiscard]] int copyCount() const;

  // As arguments for a filter named `program`; `withFile`: the file too, if there is one.
  [[nodiscard]] std::vector<std::string> arguments(const std::string& program, bool withFile) const;
};

// What is in a filter's options, with the values that CUPS reads from them; switches such as
// "landscape" and "nolandscape" are true and false.
JobOptions parsedOptions(const std::string& options);

// A filter's options from which CUPS reads exactly these.
std::string writtenOptions(const JobOptions& options);

// The options for CUPS's filters of a job whose covers and inserts are made afterwards: the printer
// is not to add any of its own, and no paper may change on the way.
JobOptions optionsWithoutSheets(JobOptions options);

}  // namespace publishing
