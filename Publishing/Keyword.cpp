#include "Publishing/Keyword.h"

namespace publishing {

Keyword::Head Keyword::headOf(std::string_view text) {
  const std::size_t size = text.size();
  if (size >= 2 * kWord) return {wordAt(text.data()), wordAt(text.data() + kWord)};
  if (size > kWord)
    return {wordAt(text.data()), wordAt(text.data() + size - kWord) >> 8 * (2 * kWord - size)};
  std::uint64_t word = 0;
  for (std::size_t index = size; index-- > 0;)
    word = word << 8 | static_cast<unsigned char>(text[index]);
  return {word, 0};
}

}  // namespace publishing
