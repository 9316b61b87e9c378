// SPDX-License-Identifier: Apache-2.0
// Owners of what libcups hands out.
#pragma once

#include <map>
#include <memory>
#include <string>

#include <cups/cups.h>
#include <cups/ppd.h>

namespace publishing {

struct CupsDeleter {
  void operator()(http_t* http) const noexcept { httpClose(http); }
  void operator()(ipp_t* message) const noexcept { ippDelete(message); }
  void operator()(cups_dest_t* destination) const noexcept { cupsFreeDests(1, destination); }
  void operator()(cups_dinfo_t* info) const noexcept { cupsFreeDestInfo(info); }
  void operator()(ppd_file_t* ppd) const noexcept;  // with the other PPD calls, in printing/ppd
};

using HttpHandle = std::unique_ptr<http_t, CupsDeleter>;
using IppHandle = std::unique_ptr<ipp_t, CupsDeleter>;
using DestinationHandle = std::unique_ptr<cups_dest_t, CupsDeleter>;
using DestinationInfoHandle = std::unique_ptr<cups_dinfo_t, CupsDeleter>;
using PPDHandle = std::unique_ptr<ppd_file_t, CupsDeleter>;

// Options in the form that libcups calls take.
class CupsOptions {
 public:
  explicit CupsOptions(const std::map<std::string, std::string>& options) {
    for (const auto& [name, value] : options)
      count_ = cupsAddOption(name.c_str(), value.c_str(), count_, &options_);
  }
  ~CupsOptions() { cupsFreeOptions(count_, options_); }
  CupsOptions(const CupsOptions&) = delete;
  CupsOptions& operator=(const CupsOptions&) = delete;

  [[nodiscard]] int count() const { return count_; }
  [[nodiscard]] cups_option_t* get() const { return options_; }

 private:
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

}  // namespace publishing
