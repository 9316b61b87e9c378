// Keywords and pairs of keywords stored once each, for tables over the options and choices of large
// PPDs.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace publishing {

// Distinct keywords, or pairs such as an option with one of its choices, numbered from 0 in the
// order in which they came. Keywords hold no NUL. Costs their bytes and some seventeen more for
// each keyword or pair.
class KeywordPool {
 public:
  using Id = std::uint32_t;
  static constexpr Id kNone = std::numeric_limits<Id>::max();

  // The number of the keyword, or of the pair; a new one when it is new.
  Id add(std::string_view first, std::string_view second = {});

  // The number of the keyword, or of the pair; kNone when it is not there.
  [[nodiscard]] Id find(std::string_view first, std::string_view second = {}) const;

  // The keyword, or the first of the pair, with a NUL behind it. Valid until the next add.
  [[nodiscard]] std::string_view first(Id id) const;
  [[nodiscard]] std::string_view second(Id id) const;

  [[nodiscard]] Id size() const { return static_cast<Id>(ends_.size()); }

  // Gives back what was kept ready for more keywords.
  void shrink();

 private:
  [[nodiscard]] std::string_view textOf(Id id) const;
  [[nodiscard]] bool holds(Id id, std::string_view first, std::string_view second) const;
  [[nodiscard]] std::size_t slotOf(std::string_view first, std::string_view second,
                                   std::uint32_t hash) const;
  void makeSlots(std::size_t count);

  std::string text_;                   // of all: first, NUL, second
  std::vector<std::uint32_t> ends_;    // where each ends in the text
  std::vector<std::uint32_t> hashes_;  // and its hash
  std::vector<Id> slots_;              // hash table, a power of two large, never full
};

}  // namespace publishing
