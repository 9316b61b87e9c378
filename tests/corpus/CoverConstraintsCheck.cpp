// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/CoverConstraintsCheck.h"

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDFields.h"
#include "base/MemoryFile.h"
#include "printing/CupsHandles.h"
#include "printing/covers/MediaOptions.h"
#include "tests/corpus/TrayOracle.h"

namespace publishing::corpus {
namespace {

constexpr std::size_t kStates = 2;

PPDHandle opened(const std::string& text) {
  const MemoryFile file(text);
  return PPDHandle(ppdOpenFile(file.path().c_str()));
}

// --- constraints between two options ---

using Choice = std::pair<std::string, std::string>;  // option and choice
using Forbidden = std::map<std::string, std::set<Choice>>;

// The choices that a side of a constraint means.
std::vector<Choice> choicesOn(ppd_file_t* ppd, const Side& side) {
  const bool custom = side.option.starts_with("Custom") && sameForCups(side.choice, "True");
  const std::string keyword = custom ? side.option.substr(6) : side.option;
  const std::string wanted = custom ? "Custom" : side.choice;
  const ppd_option_t* option = ppdFindOption(ppd, keyword.c_str());
  std::vector<Choice> choices;
  for (const ppd_choice_t& choice : choicesOf(option)) {
    const std::string name(boundedView(choice.choice));
    const bool off =
        sameForCups(name, "None") || sameForCups(name, "Off") || sameForCups(name, "False");
    if (wanted.empty() ? !off : sameForCups(name, wanted))
      choices.emplace_back(boundedView(option->keyword), name);
  }
  return choices;
}

// What each choice of the option excludes.
Forbidden forbiddenBy(ppd_file_t* ppd, const std::string& option) {
  Forbidden forbidden;
  const auto add = [&](const Side& own, const Side& other) {
    if (!sameForCups(own.option, option) || sameForCups(other.option, option)) return;
    const auto others = choicesOn(ppd, other);
    for (const auto& [keyword, choice] : choicesOn(ppd, own))
      forbidden[choice].insert(others.begin(), others.end());
  };
  for (const ppd_const_t& constraint : constraintsOf(ppd)) {
    const Side first{std::string(boundedView(constraint.option1)),
                     std::string(boundedView(constraint.choice1))};
    const Side second{std::string(boundedView(constraint.option2)),
                      std::string(boundedView(constraint.choice2))};
    add(first, second);
    add(second, first);
  }
  return forbidden;
}

// --- all constraints, by libcups ---

// The options other than those for covers and inserts, with their choices.
using Options = std::map<std::string, std::vector<std::string>>;

Options optionsOf(ppd_file_t* ppd) {
  Options options;
  for (const ppd_option_t* option = ppdFirstOption(ppd); option != nullptr;
       option = ppdNextOption(ppd)) {
    const std::string keyword(boundedView(option->keyword));
    if (keyword == cCoverMediaType || keyword == cPageMediaType) continue;
    for (const ppd_choice_t& choice : choicesOf(option))
      options[keyword].emplace_back(boundedView(choice.choice));
  }
  return options;
}

// An opened PPD and what libcups says about one of its options.
class Asked {
 public:
  Asked(const std::string& text, const std::string& option)
      : ppd_(opened(text)), oracle_(ppd_.get(), option) {}

  void mark(const std::map<std::string, std::string>& choices) const {
    const CupsOptions list(choices);
    cupsMarkOptions(ppd_.get(), list.count(), list.get());
  }

  // What forbids the choice, but for the option that it stands for.
  [[nodiscard]] std::map<std::string, std::string> forbidding(const std::string& choice,
                                                              const std::string& medium) const {
    auto found = oracle_.forbidding(choice);
    found.erase(medium);
    return found;
  }

 private:
  PPDHandle ppd_;
  TrayOracle oracle_;
};

class Comparison {
 public:
  Comparison(const std::string& before, const std::string& after, const std::string& name,
             bool thorough)
      : before_(before),
        after_(after),
        ppdBefore_(opened(before)),
        ppdAfter_(opened(after)),
        options_(optionsOf(ppdBefore_.get())),
        thorough_(thorough),
        seed_(name.begin(), name.end()),
        random_(seed_) {}

  ConstraintComparison run() {
    for (const auto& [medium, prefix] :
         {std::pair(cInputSlot, "Slot."), std::pair(kTypeOption, "Type.")}) {
      if (options_.contains(medium)) compare(medium, prefix);
    }
    return std::move(result_);
  }

 private:
  void compare(const std::string& medium, const std::string& prefix) {
    const Forbidden own = forbiddenBy(ppdBefore_.get(), medium);
    for (const char* option : {cCoverMediaType, cPageMediaType}) {
      const auto keywords = keywordsFor(option, medium, prefix);
      const Forbidden covers = forbiddenBy(ppdAfter_.get(), option);
      for (const auto& [choice, keyword] : keywords) {
        const auto& expected = own.contains(choice) ? own.at(choice) : kNothing;
        if ((covers.contains(keyword) ? covers.at(keyword) : kNothing) != expected)
          result_.different.push_back(std::string(option) + "=" + keyword);
        result_.forbidden += expected.size();
      }
      for (const auto& [other, choices] : options_)
        result_.pairs += other == medium ? 0 : choices.size() * keywords.size();
      ask(medium, option, keywords, own);
    }
  }

  void ask(const std::string& medium, const std::string& option,
           const std::map<std::string, std::string>& keywords, const Forbidden& forbidden) {
    const Asked own(before_, medium);
    const Asked cover(after_, option);
    std::size_t states = kStates;
    for (const auto& [other, choices] : options_)
      if (thorough_) states = std::max(states, choices.size());
    const std::size_t first = random_();
    for (std::size_t state = 0; state < states; ++state) {
      const auto marks = marksOf(first + state, forbidden);
      own.mark(marks);
      cover.mark(marks);
      for (const auto& [choice, keyword] : keywords) {
        const auto expected = own.forbidding(choice, medium);
        if (cover.forbidding(keyword, medium) != expected)
          result_.different.push_back(option + "=" + keyword + " (libcups)");
        ++result_.queries;
        if (!expected.empty()) ++result_.queriesForbidden;
      }
    }
  }

  // The choices with this number, counted around, and one that is in a medium's way.
  std::map<std::string, std::string> marksOf(std::size_t number, const Forbidden& forbidden) {
    std::map<std::string, std::string> marks;
    for (const auto& [option, choices] : options_)
      marks[option] = choices[number % choices.size()];
    if (thorough_ || forbidden.empty()) return marks;
    const auto medium = std::next(forbidden.begin(), pick(forbidden.size()));
    if (medium->second.empty()) return marks;
    const auto& [option, choice] = *std::next(medium->second.begin(), pick(medium->second.size()));
    marks[option] = choice;
    return marks;
  }

  std::ptrdiff_t pick(std::size_t count) { return static_cast<std::ptrdiff_t>(random_() % count); }

  // The choices of covers and inserts by the medium that they stand for.
  std::map<std::string, std::string> keywordsFor(const char* option, const std::string& medium,
                                                 const std::string& prefix) const {
    std::map<std::string, std::string> keywords;
    for (const ppd_choice_t& choice : choicesOf(ppdFindOption(ppdAfter_.get(), option))) {
      const std::string keyword(boundedView(choice.choice));
      for (const std::string& name : options_.at(medium)) {
        if (keyword == prefix + name) keywords[name] = keyword;
        if (keyword == name && !isOfOther(keyword, medium)) keywords.emplace(name, keyword);
      }
    }
    return keywords;
  }

  // A choice without prefix that both options have stands for the trays: types are not offered
  // then.
  [[nodiscard]] bool isOfOther(const std::string& keyword, const std::string& medium) const {
    const auto trays = options_.find(cInputSlot);
    return medium == kTypeOption && trays != options_.end() &&
           std::find(trays->second.begin(), trays->second.end(), keyword) != trays->second.end();
  }

  const std::set<Choice> kNothing;
  const std::string& before_;
  const std::string& after_;
  const PPDHandle ppdBefore_;
  const PPDHandle ppdAfter_;
  const Options options_;
  const bool thorough_;
  std::seed_seq seed_;
  std::mt19937 random_;
  ConstraintComparison result_;
};

}  // namespace

ConstraintComparison compareCoverConstraints(const std::string& before, const std::string& after,
                                             const std::string& name, bool thorough) {
  return Comparison(before, after, name, thorough).run();
}

}  // namespace publishing::corpus
