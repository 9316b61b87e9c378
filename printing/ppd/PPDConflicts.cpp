// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDConflicts.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <sstream>
#include <string_view>
#include <unordered_map>
#include <utility>

#include <glib.h>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/OffChoices.h"
#include "Publishing/ppd/PPDFields.h"
#include "base/Translation.h"

namespace publishing {
namespace {

bool equal(const char* left, const char* right) {
  return g_ascii_strcasecmp(left, right) == 0;
}

struct Side {
  const ppd_option_t* option;
  const ppd_choice_t* choice;  // null: every choice that switches something on

  [[nodiscard]] std::pair<std::string_view, std::string_view> keywords() const {
    return {boundedView(option->keyword), choice == nullptr ? "" : boundedView(choice->choice)};
  }
  bool operator<(const Side& other) const { return keywords() < other.keywords(); }
};

// A set, so that the same constraint written in the other direction is the same.
using Constraint = std::set<Side>;

// Finds choices as ppdFindChoice does, in any case, but without walking through all of them for
// each constraint.
class ChoiceFinder {
 public:
  const ppd_choice_t* find(ppd_option_t* option, const std::string& choice) {
    auto [known, isNew] = choices_.try_emplace(option);
    if (isNew) {
      for (const ppd_choice_t& each : choicesOf(option))
        known->second.try_emplace(lowercase(std::string(boundedView(each.choice))), &each);
    }
    const std::string keyword = lowercase(choice);
    const bool isCustomValue = keyword.starts_with('{') || keyword.starts_with("custom.");
    const auto found = known->second.find(isCustomValue ? "custom" : keyword);
    return found != known->second.end() ? found->second : nullptr;
  }

 private:
  static std::string lowercase(std::string text) {
    for (char& byte : text)
      byte = g_ascii_tolower(byte);
    return text;
  }

  std::map<const ppd_option_t*, std::unordered_map<std::string, const ppd_choice_t*>> choices_;
};

// Adds a side; false when the PPD does not know it, which makes the constraint void.
bool addSide(ppd_file_t* ppd, ChoiceFinder& finder, std::string option, std::string choice,
             Constraint& constraint) {
  if (option.starts_with("Custom") && equal(choice.c_str(), "True")) {
    option.erase(0, std::strlen("Custom"));
    choice = "Custom";
  }
  ppd_option_t* found = ppdFindOption(ppd, option.c_str());
  if (found == nullptr) return false;
  const ppd_choice_t* chosen = choice.empty() ? nullptr : finder.find(found, choice);
  if (chosen == nullptr && !choice.empty()) return false;
  constraint.insert({found, chosen});
  return true;
}

// "*Option Choice *Option Choice ...", the choices left out where any is meant.
bool addSides(ppd_file_t* ppd, ChoiceFinder& finder, const char* text, Constraint& constraint) {
  std::istringstream words(text);
  std::string word;
  std::string option;
  std::string choice;
  while (words >> word) {
    if (!word.starts_with('*')) {
      choice = word;
      continue;
    }
    if (!option.empty() && !addSide(ppd, finder, option, choice, constraint)) return false;
    option = word.substr(1);
    choice.clear();
  }
  return !option.empty() && addSide(ppd, finder, option, choice, constraint);
}

// One direction of a constraint is enough; both make one.
std::set<Constraint> distinctConstraints(ppd_file_t* ppd) {
  std::set<Constraint> constraints;
  ChoiceFinder finder;
  for (const ppd_const_t& pair : constraintsOf(ppd)) {
    Constraint constraint;
    if (addSide(ppd, finder, std::string(boundedView(pair.option1)),
                std::string(boundedView(pair.choice1)), constraint) &&
        addSide(ppd, finder, std::string(boundedView(pair.option2)),
                std::string(boundedView(pair.choice2)), constraint)) {
      constraints.insert(constraint);
    }
  }
  for (const ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsUIConstraints", nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd, "cupsUIConstraints", nullptr)) {
    Constraint constraint;
    if (attribute->value != nullptr && addSides(ppd, finder, attribute->value, constraint)) {
      constraints.insert(constraint);
    }
  }
  return constraints;
}

// The choice through which the side is in force; null when it is not. Page sizes are judged by the
// size in force: only one of PageSize and PageRegion is marked at a time.
const ppd_choice_t* choiceInForce(ppd_file_t* ppd, const Side& side) {
  const char* keyword = side.option->keyword;
  if (side.choice != nullptr && (equal(keyword, "PageSize") || equal(keyword, "PageRegion"))) {
    const ppd_size_t* size = ppdPageSize(ppd, nullptr);
    return size != nullptr && equal(size->name, side.choice->choice) ? side.choice : nullptr;
  }
  if (side.choice != nullptr) return side.choice->marked != 0 ? side.choice : nullptr;
  const ppd_choice_t* marked = ppdFindMarkedChoice(ppd, keyword);
  if (marked == nullptr || switchesOff(boundedView(marked->choice))) return nullptr;
  return marked;
}

// The sides of other options than `own`, when all of them are in force; empty otherwise.
std::vector<PPDChoice> othersInForce(ppd_file_t* ppd, const Constraint& constraint,
                                     const ppd_option_t* own) {
  std::vector<PPDChoice> others;
  for (const Side& side : constraint) {
    if (side.option == own) continue;
    const ppd_choice_t* choice = choiceInForce(ppd, side);
    if (choice == nullptr) return {};
    others.push_back(described(*side.option, *choice));
  }
  return others;
}

bool isPanelsChoice(const PPDChoice& choice) {
  return choice.option == cCoverMediaType || choice.option == cPageMediaType;
}

}  // namespace

std::string Conflict::text() const {
  std::string others;
  std::string keywords;
  for (const PPDChoice& choice : choices) {
    if (&choice != &choices.front()) {
      others += (others.empty() ? "" : ", ") + choice.optionText + ": " + choice.choiceText;
    }
    keywords += (keywords.empty() ? "" : ", ") + shown(choice.option + "=" + choice.choice);
  }
  return translated("%s: %s. Conflicts with %s (%s)", choices.front().optionText,
                    choices.front().choiceText, others, keywords);
}

std::vector<Conflict> conflictsIn(ppd_file_t* ppd) {
  std::vector<Conflict> conflicts;
  for (const Constraint& constraint : distinctConstraints(ppd)) {
    Conflict conflict;
    for (const Side& side : constraint) {
      const ppd_choice_t* choice = choiceInForce(ppd, side);
      if (choice == nullptr) break;
      conflict.choices.push_back(described(*side.option, *choice));
    }
    if (conflict.choices.size() != constraint.size()) continue;
    std::stable_partition(conflict.choices.begin(), conflict.choices.end(), isPanelsChoice);
    conflicts.push_back(std::move(conflict));
  }
  return conflicts;
}

std::map<std::string, std::vector<PPDChoice>> choicesExcludedBy(ppd_file_t* ppd,
                                                                const std::string& option) {
  std::map<std::string, std::vector<PPDChoice>> excluded;
  const ppd_option_t* own = ppdFindOption(ppd, option.c_str());
  for (const Constraint& constraint : distinctConstraints(ppd)) {
    const auto side =
        std::find_if(constraint.begin(), constraint.end(),
                     [own](const Side& candidate) { return candidate.option == own; });
    if (own == nullptr || side == constraint.end()) continue;
    const auto others = othersInForce(ppd, constraint, own);
    if (others.empty()) continue;
    const auto exclude = [&](const ppd_choice_t& choice) {
      auto& list = excluded[std::string(boundedView(choice.choice))];
      list.insert(list.end(), others.begin(), others.end());
    };
    if (side->choice != nullptr) {
      exclude(*side->choice);
      continue;
    }
    for (const ppd_choice_t& choice : choicesOf(own)) {
      if (!switchesOff(boundedView(choice.choice))) exclude(choice);
    }
  }
  return excluded;
}

}  // namespace publishing
