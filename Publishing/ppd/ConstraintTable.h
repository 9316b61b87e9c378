// Which choices of different options exclude each other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Publishing/ppd/KeywordPool.h"
#include "Publishing/ppd/MarkedChoices.h"

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

  enum class Directions { kOne, kBoth };

  // Makes room for that many entries.
  void reserve(std::size_t entries) { entries_.reserve(entries); }

  // The number of a choice, for add; a new one when it is new.
  ChoiceId choiceId(const Keyword& option, const Keyword& choice) {
    return choices_.add(option, choice);
  }

  // The number of a choice; KeywordPool::kNone when it is not there.
  [[nodiscard]] ChoiceId find(const Keyword& option, const Keyword& choice) const {
    return choices_.find(option, choice);
  }

  // Enters that `choice` is forbidden while `opponent` is marked, in both directions also that
  // `opponent` is while `choice` is. Counts from the next setMarked on.
  void add(ChoiceId choice, ChoiceId opponent, Directions directions) {
    entries_.push_back({choice, opponent, directions});
  }

  // Whether the entry that came last is for these two in both directions.
  [[nodiscard]] bool endsWith(const Keyword& option, const Keyword& choice,
                              const Keyword& opponentOption, const Keyword& opponentChoice) const {
    if (entries_.empty()) return false;
    const Entry& last = entries_.back();
    return last.directions == Directions::kBoth && choices_.holds(last.choice, option, choice) &&
           choices_.holds(last.opponent, opponentOption, opponentChoice);
  }

  // Takes over which choices are marked.
  void setMarked(const MarkedChoices& marked);

  // Whether no marked choice forbids this one. True for a choice that is not there.
  [[nodiscard]] bool allows(std::string_view option, std::string_view choice) const;

  // The marked choices that forbid this one, each once, in the order of their entries.
  [[nodiscard]] std::vector<OptionChoice> forbidding(std::string_view option,
                                                     std::string_view choice) const;

  // Gives back what was kept ready for more.
  void shrink();

 private:
  struct Entry {
    ChoiceId choice;
    ChoiceId opponent;
    Directions directions;
  };
  struct State {
    bool marked = false;
    bool forbidden = false;
  };

  KeywordPool choices_;  // options with their choices
  std::vector<Entry> entries_;
  std::vector<State> states_;  // by choice, as of the last setMarked
};

}  // namespace publishing
