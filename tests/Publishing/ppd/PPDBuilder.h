// SPDX-License-Identifier: Apache-2.0
// PPDs for tests: opened by libcups from a text, or put together by hand for what libcups itself
// never makes, such as subgroups, null entries and unterminated keywords.
#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <cups/array.h>
#include <cups/file.h>
#include <cups/ppd.h>
#include <strings.h>
#include <sys/mman.h>
#include <unistd.h>

namespace publishing::test {

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenedPPD = std::unique_ptr<ppd_file_t, ClosePPD>;

// The PPD in that file, its defaults marked.
inline OpenedPPD openPPDFile(const std::string& path) {
  OpenedPPD ppd(ppdOpenFile(path.c_str()));
  if (ppd == nullptr) throw std::runtime_error(path + ": not a PPD");
  ppdMarkDefaults(ppd.get());
  return ppd;
}

// The PPD that these bytes make, nothing marked yet. (libcups reads from descriptors only.)
inline OpenedPPD openUnmarkedPPD(const std::string& text) {
  const int memory = memfd_create("ppd", MFD_CLOEXEC);
  if (memory < 0 || write(memory, text.data(), text.size()) != std::ssize(text)) {
    throw std::runtime_error("cannot make a file in memory");
  }
  lseek(memory, 0, SEEK_SET);
  const std::unique_ptr<cups_file_t, int (*)(cups_file_t*)> file(cupsFileOpenFd(memory, "r"),
                                                                 &cupsFileClose);
  OpenedPPD ppd(ppdOpen2(file.get()));
  if (ppd == nullptr) throw std::runtime_error("not a PPD:\n" + text);
  return ppd;
}

// The same, its defaults marked.
inline OpenedPPD openWholePPD(const std::string& text) {
  OpenedPPD ppd = openUnmarkedPPD(text);
  ppdMarkDefaults(ppd.get());
  return ppd;
}

// A PPD's text: the header and these lines.
inline std::string ppdText(const std::string& lines) {
  return "*PPD-Adobe: \"4.3\"\n*LanguageEncoding: UTF-8\n" + lines;
}

// The PPD with these lines after the header, its defaults marked.
inline OpenedPPD openPPDText(const std::string& lines) {
  return openWholePPD(ppdText(lines));
}

// The lines of a PickOne option. No default when `marked` is empty.
inline std::string optionLines(const std::string& option, const std::vector<std::string>& choices,
                               const std::string& marked = "") {
  std::string lines = "*OpenUI *" + option + ": PickOne\n";
  if (!marked.empty()) lines += "*Default" + option + ": " + marked + "\n";
  for (const std::string& choice : choices)
    lines += "*" + option + " " + choice + ": \"\"\n";
  return lines + "*CloseUI: *" + option + "\n";
}

struct HandmadeOption {
  std::string keyword;
  std::vector<std::string> choices;
  std::string marked = {};
};

struct HandmadeGroup {
  std::vector<HandmadeOption> options;
  std::vector<HandmadeGroup> subgroups = {};
};

using Groups = std::vector<HandmadeGroup>;

inline Groups oneGroup(std::vector<HandmadeOption> options) {
  return {{.options = std::move(options)}};
}

struct HandmadeConstraint {
  std::string option1, choice1, option2, choice2;
};

// A keyword that fills its array to the last byte leaves it without a terminator.
template <std::size_t Size>
void fillField(char (&field)[Size], const std::string& text) {
  std::memset(field, 0, Size);
  std::memcpy(field, text.data(), std::min(text.size(), Size));
}

// A PPD made without libcups, with its look-up arrays. Owns all that get() points to.
class HandmadePPD {
 public:
  explicit HandmadePPD(const Groups& groups,
                       const std::vector<HandmadeConstraint>& constraints = {},
                       const char* manufacturer = nullptr)
      : marked_(cupsArrayNew(&byOption, nullptr), &cupsArrayDelete),
        options_(cupsArrayNew(&byKeyword, nullptr), &cupsArrayDelete) {
    if (manufacturer != nullptr) manufacturer_ = manufacturer;
    ppd_.manufacturer = manufacturer != nullptr ? manufacturer_.data() : nullptr;
    ppd_.marked = marked_.get();
    ppd_.options = options_.get();
    ppd_.groups = addGroups(groups);
    ppd_.num_groups = static_cast<int>(groups.size());
    for (const HandmadeConstraint& constraint : constraints) {
      ppd_const_t& made = constraints_.emplace_back();
      fillField(made.option1, constraint.option1);
      fillField(made.choice1, constraint.choice1);
      fillField(made.option2, constraint.option2);
      fillField(made.choice2, constraint.choice2);
    }
    ppd_.consts = constraints_.data();
    ppd_.num_consts = static_cast<int>(constraints_.size());
  }
  HandmadePPD(const HandmadePPD&) = delete;
  HandmadePPD& operator=(const HandmadePPD&) = delete;

  ppd_file_t* get() { return &ppd_; }

 private:
  static int byOption(void* first, void* second, void* /*data*/) {
    const auto* one = static_cast<ppd_choice_t*>(first)->option;
    const auto* other = static_cast<ppd_choice_t*>(second)->option;
    return one < other ? -1 : (one > other ? 1 : 0);
  }

  static int byKeyword(void* first, void* second, void* /*data*/) {
    return strncasecmp(static_cast<ppd_option_t*>(first)->keyword,
                       static_cast<ppd_option_t*>(second)->keyword, PPD_MAX_NAME);
  }

  ppd_group_t* addGroups(const Groups& groups) {
    auto& made = groups_.emplace_back(groups.size());
    for (std::size_t index = 0; index < groups.size(); ++index) {
      made[index].options = addOptions(groups[index].options);
      made[index].num_options = static_cast<int>(groups[index].options.size());
      made[index].subgroups = addGroups(groups[index].subgroups);
      made[index].num_subgroups = static_cast<int>(groups[index].subgroups.size());
    }
    return made.data();
  }

  ppd_option_t* addOptions(const std::vector<HandmadeOption>& options) {
    auto& made = optionLists_.emplace_back(options.size());
    for (std::size_t index = 0; index < options.size(); ++index) {
      fillField(made[index].keyword, options[index].keyword);
      addChoices(made[index], options[index]);
      cupsArrayAdd(options_.get(), &made[index]);
    }
    return made.data();
  }

  void addChoices(ppd_option_t& option, const HandmadeOption& from) {
    auto& made = choiceLists_.emplace_back(from.choices.size());
    for (std::size_t index = 0; index < from.choices.size(); ++index) {
      fillField(made[index].choice, from.choices[index]);
      made[index].option = &option;
      if (from.choices[index] == from.marked) cupsArrayAdd(marked_.get(), &made[index]);
    }
    option.choices = made.data();
    option.num_choices = static_cast<int>(made.size());
  }

  using CupsArray = std::unique_ptr<cups_array_t, void (*)(cups_array_t*)>;

  ppd_file_t ppd_{};
  CupsArray marked_;
  CupsArray options_;
  std::string manufacturer_;
  std::deque<std::vector<ppd_group_t>> groups_;
  std::deque<std::vector<ppd_option_t>> optionLists_;
  std::deque<std::vector<ppd_choice_t>> choiceLists_;
  std::vector<ppd_const_t> constraints_;
};

}  // namespace publishing::test
