// SPDX-License-Identifier: Apache-2.0
#include "base/FileName.h"

#include <array>
#include <iterator>
#include <string_view>

#include <glib.h>

#include "base/GlibHandles.h"

namespace publishing {
namespace {

constexpr std::size_t kLongestPlainName = 200;
constexpr std::size_t kLengthOfChecksum = 64;

}  // namespace

std::string fileNameOf(const std::string& bytes) {
  std::string name;
  for (const char byte : bytes) {
    if (g_ascii_isalnum(byte) || std::string_view("-._~").find(byte) != std::string_view::npos) {
      name += byte;
    } else {
      std::array<char, 4> code{};
      g_snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned char>(byte));
      name += code.data();
    }
  }
  if (name.size() <= kLongestPlainName) return name;
  const GlibText checksum(
      g_compute_checksum_for_string(G_CHECKSUM_SHA256, bytes.data(), std::ssize(bytes)));
  return name.substr(0, kLongestPlainName - kLengthOfChecksum) + "%" + checksum.get();
}

}  // namespace publishing
