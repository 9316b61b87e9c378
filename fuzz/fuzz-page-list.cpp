// SPDX-License-Identifier: Apache-2.0
// Page lists against a second, naive reading of their rules: result, count and pages must agree.
//
// The first byte of the input sets how the job prints, the next two the bounds; the rest is the
// list.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "Publishing/parseNum.h"
#include "fuzz/Require.h"

namespace publishing {
namespace {

struct Job {
  bool duplex;
  bool bothFrontSides;
  bool keepsPages;
  int upper;
  int limit;
};

struct Outcome {
  std::int32_t result = kPageListOK;
  std::vector<std::int32_t> pages;
};

bool isDigits(const std::string& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

// The number, or one above every bound.
int numberIn(const std::string& digits) {
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) return 0;
  return digits.size() - first > 6 ? 1000000 : std::stoi(digits.substr(first));
}

bool isIn(const Job& job, const Outcome& outcome, int page) {
  return job.keepsPages && std::count(outcome.pages.begin(), outcome.pages.end(), page) > 0;
}

std::int32_t readPage(const Job& job, int page, int& left, Outcome& outcome) {
  const int lowest = job.bothFrontSides ? 3 : 2;
  if (isIn(job, outcome, page)) return kPageListOK;
  if (page < lowest || page > job.upper) return kPageListOutOfBounds;
  if (left <= 0) return kPageListTooLong;
  outcome.pages.push_back(page);
  --left;
  return kPageListOK;
}

std::int32_t readRange(const Job& job, const std::string& item, int left, Outcome& outcome) {
  const std::size_t dash = item.find('-');
  if (dash == std::string::npos) return kPageListMalformed;
  const std::string before = item.substr(0, dash);
  const std::string after = item.substr(dash + 1);
  if (!isDigits(before)) return kPageListMalformed;
  const int start = numberIn(before);
  if (start < (job.duplex && job.bothFrontSides ? 3 : 2)) return kPageListOutOfBounds;
  if (start >= job.upper) return kPageListOutOfBounds;
  if (!isDigits(after)) return kPageListMalformed;
  const int end = numberIn(after);
  if (end > job.upper) return kPageListOutOfBounds;
  if (start >= end) return kPageListEmptyRange;
  if (end - start + 1 > left) return kPageListTooLong;
  for (int page = start; page <= end; ++page) {
    if (!isIn(job, outcome, page)) outcome.pages.push_back(page);
  }
  return kPageListOK;
}

Outcome readNaively(const Job& job, const std::string& list) {
  Outcome outcome;
  int left = job.limit;
  std::istringstream items(list);
  for (std::string item; std::getline(items, item, ',');) {
    if (item.empty()) continue;
    outcome.result = isDigits(item) ? readPage(job, numberIn(item), left, outcome)
                                    : readRange(job, item, left, outcome);
    if (outcome.result != kPageListOK) return outcome;
  }
  std::sort(outcome.pages.begin(), outcome.pages.end());
  return outcome;
}

void check(const Job& job, const std::string& list) {
  const Outcome expected = readNaively(job, list);
  std::vector<std::int32_t> pages = {-1};
  std::int32_t count = -1;
  const std::int32_t result =
      ParsePageNumber(list, job.keepsPages ? &pages : nullptr, &count, job.duplex,
                      job.bothFrontSides ? 3 : 1, job.upper, job.limit);
  require(result == expected.result, "result " + std::to_string(result) + " should be " +
                                         std::to_string(expected.result) + " for " + list);
  require(count == static_cast<std::int32_t>(expected.pages.size()), "count for " + list);
  require(!job.keepsPages || pages == expected.pages, "pages of " + list);
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  publishing::Job job = {.duplex = (data[0] & 1) != 0,
                         .bothFrontSides = (data[0] & 2) != 0,
                         .keepsPages = (data[0] & 4) == 0,
                         .upper = publishing::kHighestPage,
                         .limit = publishing::kMostPages};
  if ((data[0] & 8) != 0) {
    job.upper = data[1] * 3;
    job.limit = data[2];
  }
  const std::string list(reinterpret_cast<const char*>(data) + 3, size - 3);
  // A list ends at its first NUL, as every C string.
  publishing::check(job, list.c_str());
  return 0;
}
