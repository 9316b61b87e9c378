// SPDX-License-Identifier: Apache-2.0
#include "printing/StoredValues.h"

#include "base/Translation.h"
#include "printing/JobTicket.h"
#include "printing/PrintError.h"

namespace publishing {

std::optional<std::string> faultOfStoredPageList(const std::string& key, const std::string& list) {
  if (list.size() > kLongestStoredPageList) {
    return translated("The page list in %s is longer than %d bytes.", key, kLongestStoredPageList);
  }
  if (list.find_first_not_of("0123456789-,") == std::string::npos) return std::nullopt;
  return translated("The page list in %s has characters other than digits, \"-\" and \",\".", key);
}

std::optional<std::string> faultOfStoredText(const std::string& key, const std::string& text) {
  if (shown(text) == text) return std::nullopt;
  return translated("The text in %s is too long or has characters that cannot be shown.", key);
}

std::optional<std::string> faultOfStoredOption(const std::string& key, const std::string& value) {
  try {
    checkJobOption(key, value);
    return std::nullopt;
  } catch (const PrintError& error) {
    return error.what();
  }
}

}  // namespace publishing
