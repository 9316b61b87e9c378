// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/PPDInfo.h"

#include <utility>

#include "Publishing/ppd/PPDFields.h"

namespace publishing {
namespace {

constexpr const char* kMaker = "Zephrel";

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
  allOptionsAndChoicesDict.clear();
  for (const ppd_group_t& group : groupsOf(ppd))
    addOptionsFromGroup(&group, allOptionsAndChoicesDict);
}

void PPDInfo::addOptionsFromGroup(const ppd_group_t* group, OptionsAndChoices& dict) {
  if (group == nullptr) return;
  for (int index = 0; index < group->num_options; ++index) {
    if (group->options != nullptr) {
      const ppd_option_t& option = group->options[index];
      if (auto keyword = stringFromPPD(option.keyword, PPDEncoding::UTF8)) {
        Choices& choices = dict[std::move(*keyword)];
        choices.clear();
        addChoicesFromOption(&option, choices);
      }
    }
    for (const ppd_group_t& subgroup : subgroupsOf(group))
      addOptionsFromGroup(&subgroup, dict);
  }
}

void PPDInfo::addChoicesFromOption(const ppd_option_t* option, Choices& array) {
  const auto choices = choicesOf(option);
  array.reserve(array.size() + choices.size());
  for (const ppd_choice_t& choice : choices) {
    if (auto keyword = stringFromPPD(choice.choice, PPDEncoding::UTF8))
      array.push_back(std::move(*keyword));
  }
}

void PPDInfo::reloadMarkedChoices(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  markedChoicesDict.clear();
  for (const auto& [option, choices] : allOptionsAndChoicesDict) {
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd, option.c_str());
    if (marked == nullptr) continue;
    if (auto keyword = stringFromPPD(marked->choice, PPDEncoding::UTF8))
      markedChoicesDict.emplace(option, std::move(*keyword));
  }
}

std::optional<std::string> PPDInfo::currentMarkedChoiceForOption(std::string_view option) const {
  const auto marked = markedChoicesDict.find(option);
  return marked != markedChoicesDict.end() ? std::optional(marked->second) : std::nullopt;
}

const PPDInfo::Choices* PPDInfo::allChoicesForOption(std::string_view option) const {
  const auto found = allOptionsAndChoicesDict.find(option);
  return found != allOptionsAndChoicesDict.end() ? &found->second : nullptr;
}

bool PPDInfo::isOEMPPD() const {
  return manufacturer && manufacturer->find(kMaker) == std::string::npos;
}

}  // namespace publishing
