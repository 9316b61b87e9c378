// Which choice of each option is marked.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "Publishing/KeywordPool.h"

namespace publishing {

class MarkedChoices {
 public:
  // Marks the first choice of an option; an option is marked once.
  void mark(std::string_view option, std::string_view choice) {
    if (options_.add(option) < choiceOf_.size()) return;
    choiceOf_.push_back(choices_.add(choice));
  }

  // The option's marked choice, valid until another one is marked; nothing for none.
  [[nodiscard]] std::optional<std::string_view> choiceOf(std::string_view option) const {
    const KeywordPool::Id id = options_.find(option);
    if (id == KeywordPool::kNone) return std::nullopt;
    return choices_.first(choiceOf_[id]);
  }

  // Calls `visit` with each option and its marked choice.
  template <typename Visit>
  void forEach(Visit visit) const {
    for (KeywordPool::Id id = 0; id < options_.size(); ++id)
      visit(options_.first(id), choices_.first(choiceOf_[id]));
  }

  void shrink() {
    options_.shrink();
    choices_.shrink();
    choiceOf_.shrink_to_fit();
  }

 private:
  KeywordPool options_;
  KeywordPool choices_;
  std::vector<KeywordPool::Id> choiceOf_;  // by option
};

}  // namespace publishing
