// Which choice of each option is marked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Publishing/ppd/OptionCatalogue.h"

namespace publishing {

class MarkedChoices {
 public:
  // None marked yet, for the options of that catalogue.
  explicit MarkedChoices(std::shared_ptr<const OptionCatalogue> catalogue)
      : catalogue_(std::move(catalogue)), begins_(catalogue_->options().size(), kUnmarked) {
    constexpr std::size_t kUsualSize = 16;  // of a choice, in bytes
    text_.reserve(begins_.size() * kUsualSize);
  }

  // Marks a choice of an option, which is marked once.
  void mark(KeywordPool::Id option, std::string_view choice) {
    begins_[option] = static_cast<std::uint32_t>(text_.size());
    text_.append(choice).push_back('\0');
  }

  // The option's marked choice, valid until another one is marked; nothing for none.
  [[nodiscard]] std::optional<std::string_view> choiceOf(std::string_view option) const {
    const KeywordPool::Id id = catalogue_->options().find(option);
    if (id == KeywordPool::kNone || begins_[id] == kUnmarked) return std::nullopt;
    return choiceAt(begins_[id]);
  }

  // Calls `visit` with each option and its marked choice.
  template <typename Visit>
  void forEach(Visit visit) const {
    for (KeywordPool::Id id = 0; id < begins_.size(); ++id) {
      if (begins_[id] != kUnmarked) visit(catalogue_->options().first(id), choiceAt(begins_[id]));
    }
  }

  // Gives back what was kept ready for more.
  void shrink() { text_.shrink_to_fit(); }

 private:
  static constexpr std::uint32_t kUnmarked = std::numeric_limits<std::uint32_t>::max();

  [[nodiscard]] std::string_view choiceAt(std::uint32_t begin) const {
    return text_.data() + begin;
  }

  std::shared_ptr<const OptionCatalogue> catalogue_;
  std::vector<std::uint32_t> begins_;  // where the option's choice begins in the text, or kUnmarked
  std::string text_;                   // the choices, each with a NUL behind it
};

}  // namespace publishing
