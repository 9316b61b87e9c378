// SPDX-License-Identifier: Apache-2.0
#include "printing/JobLayout.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include <glib.h>

#include "Publishing/PublishingKeys.h"

namespace publishing {
namespace {

// The first one counts.
constexpr std::array<const char*, 3> kOrderNames = {kOutputOrder, "output-order", "page-delivery"};

bool isWord(const std::string& value, std::initializer_list<const char*> words) {
  return std::any_of(words.begin(), words.end(), [&value](const char* word) {
    return g_ascii_strcasecmp(value.c_str(), word) == 0;
  });
}

// "Reverse", and IPP's "reverse-order-face-up" and "reverse-order-face-down".
bool isReverse(const std::string& value) {
  constexpr const char* kReverse = "reverse";
  return g_ascii_strncasecmp(value.c_str(), kReverse, std::char_traits<char>::length(kReverse)) ==
         0;
}

}  // namespace

JobLayout layoutOf(const JobTicket::Options& options) {
  const auto value = [&options](const char* name) -> const std::string* {
    const auto option = findJobOption(options, name);
    return option == options.end() ? nullptr : &option->second;
  };
  JobLayout layout;
  if (const auto* pages = value("number-up")) layout.numberUp = std::atoi(pages->c_str());
  if (const auto* booklet = value("booklet")) {
    layout.booklet = !isWord(*booklet, {"false", "no", "off"});
  }
  for (const char* name : kOrderNames) {
    if (const auto* order = value(name); order != nullptr && !layout.reverse) {
      layout.reverse = isReverse(*order);
    }
  }
  return layout;
}

bool isOutputOrder(const std::string& name) {
  return std::any_of(kOrderNames.begin(), kOrderNames.end(), [&name](const char* known) {
    return g_ascii_strcasecmp(name.c_str(), known) == 0;
  });
}

}  // namespace publishing
