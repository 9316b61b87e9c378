// A keyword of a PPD, in a form that is quick to compare.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace publishing {

// Refers to the bytes that it was made from. Its first sixteen, NULs behind its end, are at hand as
// two words: few keywords are longer, and to compare and hash them like that takes no branch that
// depends on their length, nor the length itself. Loading a large PPD is little else.
class Keyword {
 public:
  // The first byte is the lowest of the first word, in every byte order.
  struct Head {
    std::uint64_t word1 = 0;
    std::uint64_t word2 = 0;

    bool operator==(const Head&) const = default;
  };

  // The empty one.
  Keyword() = default;

  // A text without NUL.
  explicit Keyword(std::string_view text)
      : bytes_(text.empty() ? "" : text.data()), limit_(text.size()), head_(headOf(text)) {}

  // What a PPD's field holds up to its terminator, at most the whole array.
  template <std::size_t Size>
  requires(Size >= sizeof(Head)) explicit Keyword(const char (&field)[Size])
      : bytes_(field), limit_(Size), head_{wordAt(field), wordAt(field + kWord)} {
    const std::uint64_t end = firstNUL(head_.word1);
    head_.word1 &= end - 1;
    head_.word2 &= end != 0 ? 0 : firstNUL(head_.word2) - 1;
  }
  template <std::size_t Size>
  explicit Keyword(const char (&field)[Size])
      : Keyword(std::string_view(field, strnlen(field, Size))) {}

  [[nodiscard]] std::string_view text() const { return {bytes_, strnlen(bytes_, limit_)}; }

  [[nodiscard]] bool isEmpty() const { return head_.word1 == 0; }

  [[nodiscard]] const Head& head() const { return head_; }

  // Whether nothing follows its head.
  [[nodiscard]] bool fitsHead() const { return head_.word2 >> 56 == 0; }

  // Whether it fits its head and no byte is above 127.
  [[nodiscard]] bool isShortASCII() const {
    return fitsHead() && ((head_.word1 | head_.word2) & 0x8080808080808080) == 0;
  }

  // Equal for equal keywords, 0 for the empty one. The higher bits are spread better.
  [[nodiscard]] std::uint64_t hash() const {
    const std::uint64_t hash =
        spread(head_.word1, 0x9E3779B97F4A7C15) + spread(head_.word2, 0xC2B2AE3D27D4EB4F);
    // A PPD may have many keywords that begin alike.
    return fitsHead() ? hash : hash + hashOfRest();
  }

  bool operator==(const Keyword& other) const {
    return head_ == other.head_ && (fitsHead() || text() == other.text());
  }

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);

  static Head headOf(std::string_view text);
  [[nodiscard]] std::uint64_t hashOfRest() const;

  static std::uint64_t wordAt(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof(word));
    return std::endian::native == std::endian::big ? __builtin_bswap64(word) : word;
  }

  static std::uint64_t spread(std::uint64_t word, std::uint64_t factor) {
    return (word ^ (word >> 32)) * factor;
  }

  // The highest bit of the word's first NUL; 0 when it has none.
  static std::uint64_t firstNUL(std::uint64_t word) {
    const std::uint64_t ends = (word - 0x0101010101010101) & ~word & 0x8080808080808080;
    return ends & -ends;
  }

  const char* bytes_ = "";
  std::size_t limit_ = 0;  // the keyword ends there, or at a NUL before
  Head head_;
};

}  // namespace publishing
