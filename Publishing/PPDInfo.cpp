#include "Publishing/PPDInfo.h"

#include <algorithm>

#include "Publishing/PPDFields.h"

namespace publishing {
namespace {

constexpr const char* kMaker = "Zephrel";

template <std::size_t Size>
std::optional<std::string> keyword(const char (&field)[Size]) {
  return stringFromPPD(field, PPDEncoding::UTF8);
}

void addOption(const ppd_option_t& option, PPDInfo::OptionsAndChoices& options) {
  const auto name = keyword(option.keyword);
  if (!name) return;
  PPDInfo::Choices& choices = options[*name];
  choices.clear();
  PPDInfo::addChoicesFromOption(&option, choices);
}

void removeFirst(PPDInfo::Choices& choices, const char* choice) {
  const auto found = std::find(choices.begin(), choices.end(), choice);
  if (found != choices.end()) choices.erase(found);
}

}  // namespace

void PPDInfo::loadPPDFile(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  manufacturer.reset();
  if (ppd->manufacturer != nullptr && isValidIn(ppd->manufacturer, PPDEncoding::UTF8)) {
    manufacturer = ppd->manufacturer;
  }
  loadAllOptionsAndChoices(ppd);
  reloadMarkedChoices(ppd);
}

void PPDInfo::loadAllOptionsAndChoices(const ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  OptionsAndChoices& options = allOptionsAndChoicesDict.emplace();
  if (ppd->groups == nullptr) return;
  for (int index = 0; index < ppd->num_groups; ++index) {
    addOptionsFromGroup(&ppd->groups[index], options);
  }
}

void PPDInfo::addOptionsFromGroup(const ppd_group_t* group, OptionsAndChoices& options) {
  if (group == nullptr) return;
  for (int index = 0; index < group->num_options; ++index) {
    if (group->options != nullptr) addOption(group->options[index], options);
    if (group->subgroups == nullptr) continue;
    for (int subgroup = 0; subgroup < group->num_subgroups; ++subgroup) {
      addOptionsFromGroup(&group->subgroups[subgroup], options);
    }
  }
}

void PPDInfo::addChoicesFromOption(const ppd_option_t* option, Choices& choices) {
  const auto all = choicesOf(option);
  choices.reserve(choices.size() + all.size());
  for (const ppd_choice_t& choice : all) {
    if (auto name = keyword(choice.choice)) choices.push_back(std::move(*name));
  }
}

void PPDInfo::reloadMarkedChoices(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  auto& marked = markedChoicesDict.emplace();
  if (!allOptionsAndChoicesDict) return;
  marked.reserve(allOptionsAndChoicesDict->size());
  for (const auto& [option, choices] : *allOptionsAndChoicesDict) {
    const ppd_choice_t* choice = ppdFindMarkedChoice(ppd, option.c_str());
    if (choice == nullptr) continue;
    if (auto name = keyword(choice->choice)) marked.emplace(option, std::move(*name));
  }
}

std::optional<std::string> PPDInfo::currentMarkedChoiceForOption(const std::string& option) const {
  if (!markedChoicesDict) return std::nullopt;
  const auto found = markedChoicesDict->find(option);
  return found != markedChoicesDict->end() ? std::optional(found->second) : std::nullopt;
}

const PPDInfo::Choices* PPDInfo::allChoicesForOption(const std::string& option) const {
  if (!allOptionsAndChoicesDict) return nullptr;
  const auto found = allOptionsAndChoicesDict->find(option);
  return found != allOptionsAndChoicesDict->end() ? &found->second : nullptr;
}

bool PPDInfo::isOEMPPD() const {
  return manufacturer && manufacturer->find(kMaker) == std::string::npos;
}

void PPDInfo::loadConstraintsFor(const Choices& options, const ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  constraintsDict.emplace();
  if (ppd->consts == nullptr) return;
  const std::unordered_set<std::string> filter(options.begin(), options.end());
  for (int index = 0; index < ppd->num_consts; ++index) {
    const ppd_const_t& constraint = ppd->consts[index];
    const auto o1 = keyword(constraint.option1);
    const auto o2 = keyword(constraint.option2);
    if (!o1 || !o2) continue;
    if (!filter.empty() && !filter.contains(*o1) && !filter.contains(*o2)) continue;
    const std::string c1 = keyword(constraint.choice1).value_or("");
    const std::string c2 = keyword(constraint.choice2).value_or("");
    addConstraintsForOption1(*o1, c1, *o2, c2);
    addConstraintsForOption1(*o2, c2, *o1, c1);
  }
}

void PPDInfo::loadConstraintsOnlyFor(const Choices& options, const ppd_file_t* ppd) {
  loadConstraintsFor(options, ppd);
}

void PPDInfo::loadAllConstraintsFromPPD(const ppd_file_t* ppd) {
  loadConstraintsFor({}, ppd);
}

void PPDInfo::addConstraintsForOption1(const std::string& o1, const std::string& c1,
                                       const std::string& o2, const std::string& c2) {
  if (!constraintsDict) return;
  ConstrainedChoices& constrained = (*constraintsDict)[o1];
  const Choices firstSide = c1.empty() ? getAllConstrainableChoicesFromOption(o1) : Choices{c1};
  const Choices secondSide = c2.empty() ? getAllConstrainableChoicesFromOption(o2) : Choices{c2};
  for (const std::string& choice : firstSide) {
    constrained[choice][o2].insert(secondSide.begin(), secondSide.end());
  }
}

PPDInfo::Choices PPDInfo::getAllConstrainableChoicesFromOption(const std::string& option) const {
  const Choices* all = allChoicesForOption(option);
  if (all == nullptr) return {};
  Choices constrainable = *all;
  removeFirst(constrainable, "None");
  removeFirst(constrainable, "False");
  return constrainable;
}

bool PPDInfo::willAllowChangeOfOption(const std::string& option, const std::string& choice) const {
  return choicesForbidding(option, choice).empty();
}

std::vector<PPDInfo::MarkedChoice> PPDInfo::choicesForbidding(const std::string& option,
                                                              const std::string& choice) const {
  if (!constraintsDict || !markedChoicesDict) return {};
  const auto constrained = constraintsDict->find(option);
  if (constrained == constraintsDict->end()) return {};
  const auto opponents = constrained->second.find(choice);
  if (opponents == constrained->second.end()) return {};
  std::vector<MarkedChoice> forbidding;
  for (const auto& [other, choices] : opponents->second) {
    const auto marked = markedChoicesDict->find(other);
    if (marked != markedChoicesDict->end() && choices.contains(marked->second)) {
      forbidding.push_back({other, marked->second});
    }
  }
  return forbidding;
}

}  // namespace publishing
