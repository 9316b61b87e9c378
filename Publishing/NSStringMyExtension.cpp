// SPDX-License-Identifier: Apache-2.0
#include "Publishing/NSStringMyExtension.h"

#include <algorithm>
#include <limits>

#include <unicode/unistr.h>

namespace publishing {
namespace {

bool isDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

}  // namespace

bool checkFor(const std::string& text, int mask) {
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
  if ((mask & kCheckEmpty) != 0 && units.isEmpty()) return true;
  if ((mask & kCheckLongerThan8) != 0 && units.length() > 8) return true;
  if ((mask & kCheckNonDigits) == 0) return false;
  const char16_t* begin = units.getBuffer();
  return !std::all_of(begin, begin + units.length(), isDigit);
}

std::int32_t intValue(const std::string& text) {
  using Limits = std::numeric_limits<std::int32_t>;
  auto next = text.begin();
  while (next != text.end() && (*next == ' ' || (*next >= '\t' && *next <= '\r')))
    ++next;

  const bool negative = next != text.end() && *next == '-';
  if (next != text.end() && (*next == '-' || *next == '+')) ++next;

  const std::int64_t bound = negative ? -std::int64_t{Limits::min()} : std::int64_t{Limits::max()};
  std::int64_t magnitude = 0;
  for (; next != text.end() && *next >= '0' && *next <= '9'; ++next) {
    magnitude = std::min(magnitude * 10 + (*next - '0'), bound);
  }
  return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
}

}  // namespace publishing
