// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/OffChoices.h"

#include <algorithm>

#include <strings.h>

namespace publishing {
namespace {

constexpr const char* kOffForLibcups[] = {"None", "Off", "False"};
constexpr const char* kOffForThePanel[] = {"None", "False"};

}  // namespace

bool switchesOff(std::string_view choice) {
  const std::string keyword(choice);
  return std::ranges::any_of(
      kOffForLibcups, [&](const char* off) { return strcasecmp(keyword.c_str(), off) == 0; });
}

std::vector<std::string> withoutOffChoices(std::vector<std::string> choices) {
  for (const char* off : kOffForThePanel) {
    const auto found = std::ranges::find(choices, off);
    if (found != choices.end()) choices.erase(found);
  }
  return choices;
}

}  // namespace publishing
