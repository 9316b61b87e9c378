// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetMedia.h"

#include <algorithm>
#include <vector>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"

namespace publishing {
namespace {

constexpr const char* kTypeOption = "MediaType";

// With empty texts when there is none.
PPDChoice markedChoice(const PPDDocument* ppd, const char* option) {
  if (ppd == nullptr) return {};
  const std::vector<PPDChoice> choices = ppd->choices(option);
  const auto marked = std::find_if(choices.begin(), choices.end(),
                                   [](const PPDChoice& choice) { return choice.marked; });
  return marked == choices.end() ? PPDChoice() : *marked;
}

PPDChoice choiceOf(const JobTicket::Options& options, const PPDDocument* ppd, const char* option) {
  const auto wanted = findJobOption(options, option);
  if (wanted == options.end()) return markedChoice(ppd, option);
  if (ppd != nullptr) {
    if (const auto known = ppd->choice(option, wanted->second)) return *known;
  }
  PPDChoice unknown;
  unknown.choice = wanted->second;
  unknown.choiceText = shown(wanted->second);
  return unknown;
}

void nameBody(SheetMedia& media, const PPDDocument* ppd) {
  const PPDChoice tray = markedChoice(ppd, cInputSlot);
  const PPDChoice type = markedChoice(ppd, kTypeOption);
  if (tray.choice.empty() && type.choice.empty()) {
    media.bodyKeyword = kPrnDef;
    media.bodyText = translated("The printer's paper");
  } else if (type.choice.empty()) {
    media.bodyKeyword = tray.choice;
    media.bodyText = tray.choiceText;
  } else if (tray.choice.empty()) {
    media.bodyKeyword = type.choice;
    media.bodyText = type.choiceText;
  } else {
    media.bodyKeyword = tray.choice + '/' + type.choice;
    // TRANSLATORS: A type of paper and the tray that it is in.
    media.bodyText = translated("%1$s (%2$s)", type.choiceText, tray.choiceText);
  }
}

}  // namespace

const std::string& SheetMedia::textOf(const std::string& medium) const {
  if (medium.empty()) return bodyText;
  const auto text = texts.find(medium);
  return text == texts.end() ? medium : text->second;
}

SheetMedia mediaOf(const JobTicket::Options& options, const PPDDocument* ppd) {
  SheetMedia media;
  nameBody(media, ppd);
  const PPDChoice insert = choiceOf(options, ppd, cPageMediaType);
  const PPDChoice cover = choiceOf(options, ppd, cCoverMediaType);
  media.insertText = insert.choiceText;
  media.coverText = cover.choiceText;
  media.texts[insert.choice] = insert.choiceText;
  media.texts[cover.choice] = cover.choiceText;
  return media;
}

}  // namespace publishing
