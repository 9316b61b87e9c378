// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Publishing/platform/PrintSettings.h"

namespace publishing {

// A job's print settings in memory. The duplex mode is set by itself, and both queries that a print
// system can fail to answer can be made to fail.
class HeadlessPrintSettings final : public PrintSettings {
 public:
  [[nodiscard]] std::optional<std::string> getValue(const std::string& key) const override;
  void setValue(const std::string& key, const std::optional<std::string>& value) override;
  [[nodiscard]] std::optional<std::map<std::string, std::string>> copyAsDictionary()
      const override {
    return copyFails_ ? std::nullopt : std::optional(values_);
  }
  [[nodiscard]] std::optional<std::int32_t> getDuplex() const override { return duplex_; }

  // Nothing makes the query fail.
  void setDuplex(std::optional<std::int32_t> mode) { duplex_ = mode; }

  void setCopyFails(bool fails) { copyFails_ = fails; }

  [[nodiscard]] const std::map<std::string, std::string>& values() const { return values_; }

 private:
  std::map<std::string, std::string> values_;
  std::optional<std::int32_t> duplex_ = 1;
  bool copyFails_ = false;
};

}  // namespace publishing
