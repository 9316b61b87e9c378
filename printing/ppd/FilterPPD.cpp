// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/FilterPPD.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDFields.h"
#include "printing/CupsHandles.h"
#include "printing/ppd/DuplexOption.h"
#include "printing/ppd/MarkedFacts.h"

namespace publishing {
namespace {

constexpr const char* kTypeOption = "MediaType";
constexpr const char* kRegionOption = "PageRegion";
constexpr const char* kCode = "PublishingCode";
constexpr const char* kKind = "PublishingKind";

// A keyword gets one of these where it would clash with another.
constexpr std::string_view kTrayPrefix = "Slot.";
constexpr std::string_view kTypePrefix = "Type.";

std::span<const ppd_choice_t> listOf(const ppd_option_t* option) {
  if (option == nullptr) return {};
  return {option->choices, static_cast<std::size_t>(option->num_choices)};
}

const ppd_choice_t* findChoice(const ppd_option_t* option, std::string_view keyword) {
  for (const ppd_choice_t& choice : listOf(option)) {
    if (boundedView(choice.choice) == keyword) return &choice;
  }
  return nullptr;
}

// What the option calls a choice of covers and inserts; empty when it has no such choice.
std::string keywordIn(const ppd_option_t* option, const std::string& choice,
                      std::string_view prefix) {
  if (findChoice(option, choice) != nullptr) return choice;
  if (!choice.starts_with(prefix)) return {};
  const std::string keyword = choice.substr(prefix.size());
  return findChoice(option, keyword) != nullptr ? keyword : std::string();
}

// Options of the job control language and of the exit server are said before the PostScript.
bool isInSetup(const ppd_option_t& option) {
  return option.section == PPD_ORDER_ANY || option.section == PPD_ORDER_DOCUMENT ||
         option.section == PPD_ORDER_PAGE;
}

}  // namespace

FilterPPD::FilterPPD(const std::string& path) {
  ppdSetConformance(PPD_CONFORM_RELAXED);
  ppd_.reset(ppdOpenFile(path.c_str()));
  if (!ppd_) {
    int line = 0;
    const char* reason = ppdErrorString(ppdLastError(&line));
    throw std::runtime_error(line > 0 ? "line " + std::to_string(line) + ": " + reason : reason);
  }
  ppdMarkDefaults(ppd());
}

void FilterPPD::mark(const std::map<std::string, std::string>& options) {
  const CupsOptions list(options);
  cupsMarkOptions(ppd(), list.count(), list.get());
}

PrinterFacts FilterPPD::facts() const {
  return markedFacts(ppd());
}

MediumCode FilterPPD::medium(const std::string& option, const std::string& choice) const {
  MediumCode medium;
  const auto add = [&](std::optional<ChoiceCode> code) {
    if (code) medium.codes.push_back(std::move(*code));
  };
  if (choice.empty()) {
    add(code(cInputSlot, marked(cInputSlot)));
    add(code(kTypeOption, marked(kTypeOption)));
    add(pageRegion(marked(cInputSlot)));
  } else if (const std::string tray = trayOf(option, choice); !tray.empty()) {
    medium.way = MediumCode::Way::Tray;
    add(code(cInputSlot, tray));
    add(pageRegion(tray));
  } else {
    medium.way = MediumCode::Way::Type;
    const std::string type = keywordIn(ppdFindOption(ppd(), kTypeOption), choice, kTypePrefix);
    if (type.empty()) medium.unknownType = choice;
    add(code(kTypeOption, type));
    add(pageRegion({}));
  }
  std::stable_sort(medium.codes.begin(), medium.codes.end(),
                   [this](const ChoiceCode& left, const ChoiceCode& right) {
                     return ppdFindOption(ppd(), left.option.c_str())->order <
                            ppdFindOption(ppd(), right.option.c_str())->order;
                   });
  if (const char* release = attribute(kCode, "Release.InputSlot")) medium.releaseTray = release;
  if (const char* release = attribute(kCode, "Release.MediaType")) medium.releaseType = release;
  return medium;
}

std::optional<ChoiceCode> FilterPPD::duplex(bool twoSided) const {
  const ppd_choice_t* choice = markedDuplexChoice(ppd());
  if (choice == nullptr) return std::nullopt;
  const std::string name = std::string(choice->option->keyword) + "." + choice->choice;
  if (const char* own = attribute(kCode, name))
    return ChoiceCode{choice->option->keyword, choice->choice, own, false};
  if (!twoSided || choice->code == nullptr || !isInSetup(*choice->option)) return std::nullopt;
  return ChoiceCode{choice->option->keyword, choice->choice, choice->code};
}

bool FilterPPD::evenDuplex() const {
  const char* value = attribute("cupsEvenDuplex", {});
  return value != nullptr && meansYes(value);
}

// pstops counts for printers without a filter of their own, foomatic-rip has pdftopdf count, raster
// drivers count what they print.
bool FilterPPD::countsPages() const {
  return ppd()->num_filters == 0 || (attribute(kKind, {}) != nullptr && !isDirect());
}

// Exactly spelled, as everything that this system writes; libcups takes any case.
const char* FilterPPD::attribute(const char* name, const std::string& spec) const {
  for (const ppd_attr_t* found = ppdFindAttr(ppd(), name, nullptr); found != nullptr;
       found = ppdFindNextAttr(ppd(), name, nullptr)) {
    if (boundedView(found->spec) == spec) return found->value;
  }
  return nullptr;
}

// Nothing for an unknown choice, or one that means nothing between pages.
std::optional<ChoiceCode> FilterPPD::code(const char* option, const std::string& choice) const {
  const ppd_option_t* found = ppdFindOption(ppd(), option);
  const ppd_choice_t* chosen = findChoice(found, choice);
  if (chosen == nullptr) return std::nullopt;
  if (const char* own = attribute(kCode, std::string(option) + "." + choice))
    return ChoiceCode{option, choice, own, false};
  // The code of a custom value takes its numbers from the stack, and there are none.
  if (ppdFindCustomOption(ppd(), option) != nullptr && choice == "Custom") return std::nullopt;
  if (!takesPostScript() || !isInSetup(*found) || chosen->code == nullptr || *chosen->code == '\0')
    return std::nullopt;
  return ChoiceCode{option, choice, chosen->code};
}

// Of the job's page size, where the PPD wants it said again after the tray.
std::optional<ChoiceCode> FilterPPD::pageRegion(const std::string& tray) const {
  const char* required = tray.empty() ? nullptr : attribute("RequiresPageRegion", tray);
  if (required == nullptr) required = attribute("RequiresPageRegion", "All");
  if (required == nullptr || !meansYes(required)) return std::nullopt;
  const ppd_size_t* size = ppdPageSize(ppd(), nullptr);
  return size == nullptr ? std::nullopt : code(kRegionOption, std::string(boundedView(size->name)));
}

// The trays are the last choices, as many as InputSlot has. Empty for anything else.
std::string FilterPPD::trayOf(const std::string& option, const std::string& choice) const {
  const auto choices = listOf(ppdFindOption(ppd(), option.c_str()));
  const ppd_option_t* trays = ppdFindOption(ppd(), cInputSlot);
  const std::size_t count = std::min(listOf(trays).size(), choices.size());
  const auto last = choices.last(count);
  const bool isLast =
      choices.empty() || std::any_of(last.begin(), last.end(), [&](const ppd_choice_t& each) {
        return boundedView(each.choice) == choice;
      });
  return isLast ? keywordIn(trays, choice, kTrayPrefix) : std::string();
}

std::string FilterPPD::marked(const char* option) const {
  const ppd_choice_t* choice = ppdFindMarkedChoice(ppd(), option);
  return choice == nullptr ? std::string() : std::string(boundedView(choice->choice));
}

bool FilterPPD::isDirect() const {
  const char* kind = attribute(kKind, {});
  return kind == nullptr || std::string_view(kind) == "postscript";
}

// Whether the code of the PPD's choices is PostScript.
bool FilterPPD::takesPostScript() const {
  const char* kind = attribute(kKind, {});
  return isDirect() || std::string_view(kind) == "foomatic-postscript";
}

}  // namespace publishing
