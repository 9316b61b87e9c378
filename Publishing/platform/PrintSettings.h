// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace publishing {

// The settings of one print job: UTF-8 strings by key. They belong to the job; the panel reads and
// changes them through these calls only.
class PrintSettings {
 public:
  virtual ~PrintSettings() = default;

  // The key's value; nothing when the settings do not hold the key (an empty string is a value).
  [[nodiscard]] virtual std::optional<std::string> getValue(const std::string& key) const = 0;

  // Stores a value; nothing removes the key.
  virtual void setValue(const std::string& key, const std::optional<std::string>& value) = 0;

  // All keys and values; nothing when the copy cannot be made.
  [[nodiscard]] virtual std::optional<std::map<std::string, std::string>> copyAsDictionary()
      const = 0;

  // The duplex mode: 1 one-sided, 2 two-sided along the long edge, 3 two-sided along the short
  // edge; nothing when it cannot be told.
  [[nodiscard]] virtual std::optional<std::int32_t> getDuplex() const = 0;
};

}  // namespace publishing
