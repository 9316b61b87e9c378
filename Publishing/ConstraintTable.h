// Which choices of different options exclude each other.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "Publishing/KeywordPool.h"
#include "Publishing/MarkedChoices.h"

namespace publishing {

// One choice of one option.
struct OptionChoice {
  std::string option;
  std::string choice;

  bool operator==(const OptionChoice&) const = default;
};

// For each choice of an option, the choices of other options that forbid it while they are marked.
// Entries only accumulate.
class ConstraintTable {
 public:
  using ChoiceId = KeywordPool::Id;

  // The number of a choice, for add.
  ChoiceId choiceId(std::string_view option, std::string_view choice);

  // Enters that `choice` is forbidden while `opponent` is marked.
  void add(ChoiceId choice, ChoiceId opponent);

  // Takes over which choices are marked. Entries with choices that came later count as unmarked.
  void setMarked(const MarkedChoices& marked);

  // Whether no marked choice forbids this one. True for a choice that is not there.
  [[nodiscard]] bool allows(std::string_view option, std::string_view choice) const;

  // The marked choices that forbid this one, each once, in the order of their entries.
  [[nodiscard]] std::vector<OptionChoice> forbidding(std::string_view option,
                                                     std::string_view choice) const;

  // Gives back what was kept ready for more.
  void shrink();

 private:
  static constexpr std::uint32_t kEnd = std::numeric_limits<std::uint32_t>::max();

  struct Entry {
    ChoiceId opponent;
    std::uint32_t next;  // the next entry of the same choice, or kEnd
  };
  struct Row {
    std::uint32_t first = kEnd;
    std::uint32_t last = kEnd;
    bool marked = false;
  };

  [[nodiscard]] std::uint32_t firstEntry(std::string_view option, std::string_view choice) const;

  KeywordPool choices_;    // options with their choices
  std::vector<Row> rows_;  // by choice
  std::vector<Entry> entries_;
};

}  // namespace publishing
