// SPDX-License-Identifier: Apache-2.0
#include "bench/BuiltPPD.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <strings.h>

namespace publishing::bench {
namespace {

constexpr int kTrays = 4;
constexpr int kChoices = 2;
constexpr int kInGroup = 1000;

// The orders in which libcups keeps options and marked choices.
int compareOptions(void* one, void* other, void* /*data*/) {
  return strcasecmp(static_cast<ppd_option_t*>(one)->keyword,
                    static_cast<ppd_option_t*>(other)->keyword);
}

int compareMarked(void* one, void* other, void* /*data*/) {
  return std::strcmp(static_cast<ppd_choice_t*>(one)->option->keyword,
                     static_cast<ppd_choice_t*>(other)->option->keyword);
}

}  // namespace

BuiltPPD::BuiltPPD(int options) {
  // What points to them would not survive a move.
  options_.reserve(static_cast<std::size_t>(options) + 1);
  choices_.reserve(static_cast<std::size_t>(options) * kChoices + kTrays);
  ppd_.options = cupsArrayNew(compareOptions, nullptr);
  ppd_.marked = cupsArrayNew(compareMarked, nullptr);
  char keyword[PPD_MAX_NAME];
  for (int number = 0; number < options; ++number) {
    std::snprintf(keyword, sizeof(keyword), "FinisherOption%07d", number);
    addOption(keyword, "Setting", kChoices);
  }
  addOption("InputSlot", "Tray", kTrays);

  for (std::size_t first = 0; first < options_.size(); first += kInGroup) {
    ppd_group_t group{};
    group.options = &options_[first];
    group.num_options = static_cast<int>(std::min<std::size_t>(kInGroup, options_.size() - first));
    groups_.push_back(group);
  }
  ppd_.groups = groups_.data();
  ppd_.num_groups = static_cast<int>(groups_.size());
}

BuiltPPD::~BuiltPPD() {
  cupsArrayDelete(ppd_.options);
  cupsArrayDelete(ppd_.marked);
}

void BuiltPPD::addOption(const char* keyword, const char* choicePrefix, int choices) {
  ppd_option_t& option = options_.emplace_back();
  std::snprintf(option.keyword, sizeof(option.keyword), "%s", keyword);
  option.num_choices = choices;
  for (int number = 1; number <= choices; ++number) {
    ppd_choice_t& choice = choices_.emplace_back();
    std::snprintf(choice.choice, sizeof(choice.choice), "%s%d", choicePrefix, number);
    choice.option = &option;
  }
  option.choices = &choices_[choices_.size() - static_cast<std::size_t>(choices)];
  option.choices->marked = 1;
  cupsArrayAdd(ppd_.options, &option);
  cupsArrayAdd(ppd_.marked, option.choices);
}

}  // namespace publishing::bench
