#include "Publishing/ppd/ConstraintTable.h"

#include <algorithm>

namespace publishing {

void ConstraintTable::setMarked(const MarkedChoices& marked) {
  states_.assign(choices_.size(), {});
  marked.forEach([this](std::string_view option, std::string_view choice) {
    const ChoiceId id = choices_.find(option, choice);
    if (id != KeywordPool::kNone) states_[id].marked = true;
  });
  for (const auto& [choice, opponent, directions] : entries_) {
    states_[choice].forbidden |= states_[opponent].marked;
    states_[opponent].forbidden |= states_[choice].marked && directions == Directions::kBoth;
  }
}

bool ConstraintTable::allows(std::string_view option, std::string_view choice) const {
  const ChoiceId id = choices_.find(option, choice);
  return id >= states_.size() || !states_[id].forbidden;
}

std::vector<OptionChoice> ConstraintTable::forbidding(std::string_view option,
                                                      std::string_view choice) const {
  if (allows(option, choice)) return {};
  std::vector<OptionChoice> found;
  const auto add = [&](ChoiceId opponent) {
    if (!states_[opponent].marked) return;
    OptionChoice next{std::string(choices_.first(opponent)),
                      std::string(choices_.second(opponent))};
    if (std::find(found.begin(), found.end(), next) == found.end())
      found.push_back(std::move(next));
  };
  const ChoiceId id = choices_.find(option, choice);
  for (const auto& [forbidden, opponent, directions] : entries_) {
    if (forbidden == id) add(opponent);
    if (opponent == id && directions == Directions::kBoth) add(forbidden);
  }
  return found;
}

void ConstraintTable::shrink() {
  choices_.shrink();
  entries_.shrink_to_fit();
}

}  // namespace publishing
