// Keywords and pairs of keywords stored once each, for tables over the options and choices of large
// PPDs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "Publishing/ppd/Keyword.h"

namespace publishing {

// Distinct keywords, or pairs such as an option with one of its choices, numbered from 0 in the
// order in which they came. Costs their bytes and some sixty more for each keyword or pair.
class KeywordPool {
 public:
  using Id = std::uint32_t;
  static constexpr Id kNone = std::numeric_limits<Id>::max();

  // The number of the keyword, or of the pair; a new one when it is new.
  Id add(const Keyword& first, const Keyword& second = {});

  // The number of the keyword, or of the pair; kNone when it is not there.
  [[nodiscard]] Id find(const Keyword& first, const Keyword& second = {}) const {
    return slots_.empty() ? kNone : slots_[slotOf(first, second)];
  }

  // The same for texts; one that holds a NUL is not there.
  [[nodiscard]] Id find(std::string_view first, std::string_view second = {}) const;

  // Whether the keyword, or the pair, has that number, which there must be.
  [[nodiscard]] bool holds(Id id, const Keyword& first, const Keyword& second = {}) const;

  // The keyword, or the first of the pair, with a NUL behind it. Valid until the next add.
  [[nodiscard]] std::string_view first(Id id) const {
    return {text_.data() + entries_[id].begin, entries_[id].size1};
  }
  [[nodiscard]] std::string_view second(Id id) const {
    return {text_.data() + entries_[id].begin + entries_[id].size1 + 1, entries_[id].size2};
  }

  [[nodiscard]] Id size() const { return static_cast<Id>(entries_.size()); }

  // Makes room for that many keywords or pairs in all.
  void reserve(std::size_t count);

  // Gives back what was kept ready for more.
  void shrink();

 private:
  struct Entry {
    Keyword::Head head1;
    Keyword::Head head2;
    std::uint32_t begin;  // in the text
    std::uint32_t size1;
    std::uint32_t size2;
  };

  [[nodiscard]] bool holdsTexts(Id id, const Keyword& first, const Keyword& second) const;

  // The slot at which a search for the keyword or pair begins.
  [[nodiscard]] std::size_t homeOf(const Keyword& first, const Keyword& second) const {
    return (first.hash() + 3 * second.hash()) >> hashShift_;
  }
  [[nodiscard]] std::size_t slotOf(const Keyword& first, const Keyword& second) const;

  std::string text_;  // of all: first, NUL, second, NUL
  std::vector<Entry> entries_;
  std::vector<Id> slots_;  // hash table, a power of two large, at least half of it free
  int hashShift_ = 0;      // leaves as many bits of a hash as number the slots
};

inline bool KeywordPool::holds(Id id, const Keyword& first, const Keyword& second) const {
  const Entry& entry = entries_[id];
  return entry.head2 == second.head() && entry.head1 == first.head() &&
         ((first.fitsHead() && second.fitsHead()) || holdsTexts(id, first, second));
}

// The slot that holds the keyword or pair, or the free one where it belongs.
inline std::size_t KeywordPool::slotOf(const Keyword& first, const Keyword& second) const {
  const Id* slots = slots_.data();
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = homeOf(first, second);
  while (slots[slot] != kNone && !holds(slots[slot], first, second))
    slot = (slot + 1) & mask;
  return slot;
}

}  // namespace publishing
