// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <compare>
#include <set>
#include <string_view>
#include <utility>

#include "Publishing/ppd/OffChoices.h"
#include "Publishing/ppd/PPDFields.h"
#include "Publishing/ppd/PPDInfo.h"

namespace publishing {
namespace {

struct Side {
  std::string_view option;
  std::string_view choice;  // empty: any choice that switches something on

  auto operator<=>(const Side&) const = default;
};

bool isUTF8(std::string_view keyword) {
  return isValidIn(keyword, PPDEncoding::UTF8);
}

// A choice that is not valid UTF-8 counts as empty.
std::string_view validOrEmpty(std::string_view choice) {
  return isUTF8(choice) ? choice : std::string_view();
}

}  // namespace

void PPDInfo::loadConstraintsFor(const Choices& options, const ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  constraintsDict.emplace();
  const std::set<std::string, std::less<>> filter(options.begin(), options.end());
  const auto isWanted = [&](std::string_view option1, std::string_view option2) {
    return filter.empty() || filter.contains(option1) || filter.contains(option2);
  };
  // A line without a choice may stand for thousands of pairs: however often a PPD has it, from
  // whichever side, it is expanded once.
  std::set<std::pair<Side, Side>> expanded;
  for (const ppd_const_t& constraint : constraintsOf(ppd)) {
    const std::string_view option1 = boundedView(constraint.option1);
    const std::string_view option2 = boundedView(constraint.option2);
    if (!isWanted(option1, option2) || !isUTF8(option1) || !isUTF8(option2)) continue;
    const Side one{option1, validOrEmpty(boundedView(constraint.choice1))};
    const Side other{option2, validOrEmpty(boundedView(constraint.choice2))};
    const bool isOpen = one.choice.empty() || other.choice.empty();
    if (isOpen && !expanded.insert(std::minmax(one, other)).second) continue;
    addConstraintsForOption1(one.option, one.choice, other.option, other.choice);
    addConstraintsForOption1(other.option, other.choice, one.option, one.choice);
  }
}

void PPDInfo::loadConstraintsOnlyFor(const Choices& options, const ppd_file_t* ppd) {
  loadConstraintsFor(options, ppd);
}

void PPDInfo::loadAllConstraintsFromPPD(const ppd_file_t* ppd) {
  loadConstraintsFor({}, ppd);
}

void PPDInfo::addConstraintsForOption1(std::string_view o1, std::string_view c1,
                                       std::string_view o2, std::string_view c2) {
  if (!constraintsDict) return;
  ForbiddenChoices& forbidden = (*constraintsDict)[std::string(o1)];
  forEachChoiceMeant(o1, c1, [&](const std::string& choice) {
    auto& opponents = forbidden[choice][std::string(o2)];
    forEachChoiceMeant(o2, c2, [&](const std::string& opponent) { opponents.insert(opponent); });
  });
}

template <typename Visit>
void PPDInfo::forEachChoiceMeant(std::string_view option, std::string_view choice,
                                 const Visit& visit) const {
  if (!choice.empty()) return visit(std::string(choice));
  for (const std::string& any : getAllConstrainableChoicesFromOption(option))
    visit(any);
}

PPDInfo::Choices PPDInfo::getAllConstrainableChoicesFromOption(std::string_view option) const {
  const Choices* choices = allChoicesForOption(option);
  return choices != nullptr ? withoutOffChoices(*choices) : Choices();
}

bool PPDInfo::willAllowChangeOfOption(std::string_view option, std::string_view choice) const {
  return choicesForbidding(option, choice).empty();
}

std::vector<PPDInfo::MarkedChoice> PPDInfo::choicesForbidding(std::string_view option,
                                                              std::string_view choice) const {
  if (!constraintsDict) return {};
  const auto choices = constraintsDict->find(option);
  if (choices == constraintsDict->end()) return {};
  const auto opponents = choices->second.find(choice);
  if (opponents == choices->second.end()) return {};
  std::vector<MarkedChoice> found;
  for (const auto& [opponent, forbidding] : opponents->second) {
    const auto marked = markedChoicesDict.find(opponent);
    if (marked != markedChoicesDict.end() && forbidding.contains(marked->second))
      found.push_back({opponent, marked->second});
  }
  return found;
}

}  // namespace publishing
