// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/MediaOptions.h"

#include <algorithm>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr std::size_t kLongestKeyword = 40;  // libcups refuses files with longer ones
constexpr std::string_view kReserved[] = {kPrnDef, "None", "True", "False", "Unknown"};

std::string_view withoutStar(std::string_view keyword) {
  return keyword.starts_with('*') ? keyword.substr(1) : keyword;
}

bool opens(const PPDStatement& statement) {
  return statement.keyword == "OpenUI" || statement.keyword == "JCLOpenUI";
}

bool closes(const PPDStatement& statement) {
  return statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI";
}

MediaOption optionOf(const std::vector<PPDStatement>& statements, std::string_view keyword) {
  MediaOption option;
  option.keyword = keyword;
  bool inside = false;
  for (const PPDStatement& statement : statements) {
    if (opens(statement)) inside = false;
    if (opens(statement) && sameKeyword(withoutStar(statement.option), keyword)) {
      if (option.end != 0) {
        throw PrintError::refused(
            translated("Its PPD has the option %s twice.", std::string(keyword)));
      }
      inside = true;
      option.beforeJob = statement.keyword == "JCLOpenUI";
    }
    if (!inside) continue;
    option.end = statement.end;
    if (closes(statement)) inside = false;
    if (sameKeyword(statement.keyword, keyword) && !statement.option.empty())
      option.choices.push_back({statement.option, statement.text, statement.value});
  }
  return option;
}

bool hasKeyword(const MediaOption& option, std::string_view keyword) {
  return std::any_of(option.choices.begin(), option.choices.end(), [&](const MediaChoice& choice) {
    return sameKeyword(choice.keyword, keyword);
  });
}

bool isReserved(std::string_view keyword) {
  return std::any_of(std::begin(kReserved), std::end(kReserved),
                     [&](std::string_view word) { return sameKeyword(word, keyword); });
}

void addChoices(const MediaOption& option, const MediaOption& other, const std::string& prefix,
                std::vector<CoverChoice>& list) {
  for (const MediaChoice& choice : option.choices) {
    CoverChoice cover = {std::string(choice.keyword), std::string(choice.text), &option, &choice};
    if (isReserved(choice.keyword) || hasKeyword(other, choice.keyword)) {
      cover.keyword.insert(0, prefix);
      if (cover.text.empty()) cover.text = choice.keyword;
    }
    if (cover.keyword.size() > kLongestKeyword) {
      throw PrintError::refused(translated("The keyword of its choice %s=%s is too long.",
                                           std::string(option.keyword),
                                           shown(std::string(choice.keyword))));
    }
    list.push_back(std::move(cover));
  }
}

}  // namespace

bool MediaOption::switches() const {
  return std::any_of(choices.begin(), choices.end(), [this](const MediaChoice& choice) {
    return choice.code != choices.front().code;
  });
}

PPDMedia mediaOf(const std::vector<PPDStatement>& statements) {
  return {optionOf(statements, kTypeOption), optionOf(statements, cInputSlot)};
}

std::vector<CoverChoice> coverChoices(const PPDMedia& media, bool withTypes) {
  const MediaOption noTypes;
  const MediaOption& types = withTypes ? media.types : noTypes;
  std::vector<CoverChoice> list;
  addChoices(types, media.trays, "Type.", list);
  addChoices(media.trays, types, "Slot.", list);
  return list;
}

}  // namespace publishing
