#include "Publishing/ConstraintTable.h"

#include <algorithm>

namespace publishing {

ConstraintTable::ChoiceId ConstraintTable::choiceId(std::string_view option,
                                                    std::string_view choice) {
  const ChoiceId id = choices_.add(option, choice);
  if (id == rows_.size()) rows_.emplace_back();
  return id;
}

void ConstraintTable::add(ChoiceId choice, ChoiceId opponent) {
  const auto entry = static_cast<std::uint32_t>(entries_.size());
  entries_.push_back({opponent, kEnd});
  Row& row = rows_[choice];
  (row.first == kEnd ? row.first : entries_[row.last].next) = entry;
  row.last = entry;
}

void ConstraintTable::setMarked(const MarkedChoices& marked) {
  for (Row& row : rows_)
    row.marked = false;
  marked.forEach([this](std::string_view option, std::string_view choice) {
    const ChoiceId id = choices_.find(option, choice);
    if (id != KeywordPool::kNone) rows_[id].marked = true;
  });
}

bool ConstraintTable::allows(std::string_view option, std::string_view choice) const {
  for (std::uint32_t entry = firstEntry(option, choice); entry != kEnd;
       entry = entries_[entry].next) {
    if (rows_[entries_[entry].opponent].marked) return false;
  }
  return true;
}

std::vector<OptionChoice> ConstraintTable::forbidding(std::string_view option,
                                                      std::string_view choice) const {
  std::vector<OptionChoice> forbidding;
  for (std::uint32_t entry = firstEntry(option, choice); entry != kEnd;
       entry = entries_[entry].next) {
    const ChoiceId opponent = entries_[entry].opponent;
    if (!rows_[opponent].marked) continue;
    OptionChoice found{std::string(choices_.first(opponent)),
                       std::string(choices_.second(opponent))};
    if (std::find(forbidding.begin(), forbidding.end(), found) == forbidding.end()) {
      forbidding.push_back(std::move(found));
    }
  }
  return forbidding;
}

std::uint32_t ConstraintTable::firstEntry(std::string_view option, std::string_view choice) const {
  const ChoiceId id = choices_.find(option, choice);
  return id != KeywordPool::kNone ? rows_[id].first : kEnd;
}

void ConstraintTable::shrink() {
  choices_.shrink();
  rows_.shrink_to_fit();
  entries_.shrink_to_fit();
}

}  // namespace publishing
