#include "Publishing/ppd/Keyword.h"

#include <functional>

namespace publishing {
namespace {

constexpr std::size_t kHalf = sizeof(std::uint32_t);

std::uint64_t halfAt(const char* bytes) {
  std::uint32_t half = 0;
  std::memcpy(&half, bytes, sizeof(half));
  return std::endian::native == std::endian::big ? __builtin_bswap32(half) : half;
}

std::uint64_t byteAt(std::string_view text, std::size_t index) {
  return std::uint64_t{static_cast<unsigned char>(text[index])} << 8 * index;
}

}  // namespace

Keyword::Head Keyword::headOf(std::string_view text) {
  const char* bytes = text.data();
  const std::size_t size = text.size();
  if (size >= 2 * kWord) return {wordAt(bytes), wordAt(bytes + kWord)};
  if (size > kWord) return {wordAt(bytes), wordAt(bytes + size - kWord) >> 8 * (2 * kWord - size)};
  // Bytes that are read twice come to lie on themselves.
  if (size >= kHalf) return {halfAt(bytes) | halfAt(bytes + size - kHalf) << 8 * (size - kHalf), 0};
  if (size == 0) return {};
  return {byteAt(text, 0) | byteAt(text, size / 2) | byteAt(text, size - 1), 0};
}

std::uint64_t Keyword::hashOfRest() const {
  return std::hash<std::string_view>()(text().substr(sizeof(Head)));
}

}  // namespace publishing
