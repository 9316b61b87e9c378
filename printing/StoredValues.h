// SPDX-License-Identifier: Apache-2.0
// What is checked of the panel's values wherever they were stored. `key` names the value for the
// user; the answer says why it cannot be trusted, nothing when it can.
#pragma once

#include <optional>
#include <string>

namespace publishing {

inline constexpr int kLongestStoredPageList = 2048;  // bytes; the panel accepts no longer one

std::optional<std::string> faultOfStoredPageList(const std::string& key, const std::string& list);

// A medium's text.
std::optional<std::string> faultOfStoredText(const std::string& key, const std::string& text);

// Any other value: what a job could not carry. `key` is the job's option.
std::optional<std::string> faultOfStoredOption(const std::string& key, const std::string& value);

}  // namespace publishing
