// Which options a PPD has and which choices each of them has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Publishing/ppd/KeywordPool.h"

namespace publishing {

// Option keywords with their lists of choice keywords, which keep their order. Keywords hold no
// NUL.
class OptionCatalogue {
 public:
  using Choices = std::vector<std::string_view>;

  // Makes room for that many options and choices.
  void reserve(std::size_t options, std::size_t choices);

  // Begins the option's list, anew when it has one.
  void beginOption(std::string_view option);

  // Appends to the list begun last; there must be one.
  void addChoice(std::string_view choice) {
    text_.append(choice).push_back('\0');
    lists_[current_].end = static_cast<std::uint32_t>(text_.size());
  }

  // The option's list, its keywords valid until the catalogue changes; nothing for an option that
  // is not there.
  [[nodiscard]] std::optional<Choices> choicesOf(std::string_view option) const;

  // The options in the order in which they were first begun.
  [[nodiscard]] const KeywordPool& options() const { return options_; }

  // Gives back what was kept ready for more.
  void shrink();

 private:
  struct List {
    std::uint32_t begin;
    std::uint32_t end;
  };

  KeywordPool options_;
  std::vector<List> lists_;  // by option
  std::string text_;         // the choices, one after the other, each with a NUL behind it
  KeywordPool::Id current_ = 0;
};

}  // namespace publishing
