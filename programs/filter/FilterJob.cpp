// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/FilterJob.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include <cups/cups.h>
#include <strings.h>

#include "Publishing/PublishingKeys.h"

namespace publishing {

bool OptionNameLess::operator()(const std::string& left, const std::string& right) const {
  return strcasecmp(left.c_str(), right.c_str()) < 0;
}

std::optional<FilterJob> FilterJob::fromArguments(int argc, char** argv) {
  if (argc != 6 && argc != 7) return std::nullopt;
  FilterJob job{argv[1], argv[2], argv[3], argv[4], argv[5], std::nullopt};
  if (argc == 7) job.file = argv[6];
  return job;
}

int FilterJob::copyCount() const {
  return std::max(std::atoi(copies.c_str()), 1);
}

std::vector<std::string> FilterJob::arguments(const std::string& program, bool withFile) const {
  std::vector<std::string> list = {program, id, user, title, copies, options};
  if (withFile && file) list.push_back(*file);
  return list;
}

JobOptions parsedOptions(const std::string& options) {
  cups_option_t* list = nullptr;
  const int count = cupsParseOptions(options.c_str(), 0, &list);
  JobOptions parsed;
  for (int i = 0; i < count; ++i)
    parsed[list[i].name] = list[i].value;
  cupsFreeOptions(count, list);
  return parsed;
}

std::string writtenOptions(const JobOptions& options) {
  std::string text;
  for (const auto& [name, value] : options) {
    text += (text.empty() ? "" : " ") + name + "=\"";
    for (const char byte : value) {
      if (byte == '"' || byte == '\\') text += '\\';
      text += byte;
    }
    text += '"';
  }
  return text;
}

JobOptions optionsWithoutSheets(JobOptions options) {
  std::erase_if(options, [](const auto& option) {
    constexpr std::string_view kFirstPage = "AP_FIRSTPAGE_";
    return strncasecmp(option.first.c_str(), kFirstPage.data(), kFirstPage.size()) == 0;
  });
  options[cCoverMediaType] = kPrnDef;
  options[cPageMediaType] = kPrnDef;
  // The sides are counted here, not the pages there.
  options["page-logging"] = "off";
  return options;
}

}  // namespace publishing
