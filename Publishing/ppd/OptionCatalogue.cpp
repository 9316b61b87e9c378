#include "Publishing/ppd/OptionCatalogue.h"

namespace publishing {

void OptionCatalogue::reserve(std::size_t options, std::size_t choices) {
  constexpr std::size_t kUsualSize = 16;  // of a choice, in bytes
  options_.reserve(options);
  lists_.reserve(options);
  text_.reserve(choices * kUsualSize);
}

void OptionCatalogue::beginOption(std::string_view option) {
  current_ = options_.add(Keyword(option));
  lists_.resize(options_.size());
  const auto begin = static_cast<std::uint32_t>(text_.size());
  lists_[current_] = {begin, begin};
}

std::optional<OptionCatalogue::Choices> OptionCatalogue::choicesOf(std::string_view option) const {
  const KeywordPool::Id id = options_.find(option);
  if (id == KeywordPool::kNone) return std::nullopt;
  const auto [begin, end] = lists_[id];
  const std::string_view text = std::string_view(text_).substr(begin, end - begin);
  Choices choices;
  for (std::size_t next = 0; next < text.size(); next += choices.back().size() + 1) {
    choices.push_back(text.substr(next, text.find('\0', next) - next));
  }
  return choices;
}

void OptionCatalogue::shrink() {
  options_.shrink();
  lists_.shrink_to_fit();
  text_.shrink_to_fit();
}

}  // namespace publishing
