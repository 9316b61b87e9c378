#include "Publishing/PPDInfo.h"

#include <algorithm>
#include <bitset>

#include "Publishing/PPDFields.h"

namespace publishing {
namespace {

constexpr const char* kMaker = "Zephrel";

// The keyword in that field; nothing when it is not valid UTF-8. Reads each byte once: a large PPD
// has thousands of keywords, short and nearly all ASCII.
template <std::size_t Size>
std::optional<std::string_view> keyword(const char (&field)[Size]) {
  unsigned bits = 0;
  std::size_t length = 0;
  for (; length < Size && field[length] != '\0'; ++length)
    bits |= static_cast<unsigned char>(field[length]);
  const std::string_view bytes(field, length);
  return bits < 0x80 || isValidIn(bytes, PPDEncoding::UTF8) ? std::optional(bytes) : std::nullopt;
}

void addOption(const ppd_option_t& option, OptionCatalogue& options) {
  const auto name = keyword(option.keyword);
  if (!name) return;
  options.beginOption(*name);
  PPDInfo::addChoicesFromOption(&option, options);
}

bool mirrored(const ppd_const_t& one, const ppd_const_t& other) {
  return boundedView(one.choice1) == boundedView(other.choice2) &&
         boundedView(one.choice2) == boundedView(other.choice1) &&
         boundedView(one.option1) == boundedView(other.option2) &&
         boundedView(one.option2) == boundedView(other.option1);
}

// A set of option keywords that all pass when it is empty. Most options of a PPD differ from those
// wanted in the first byte already.
class OptionFilter {
 public:
  explicit OptionFilter(const PPDInfo::Choices& options) : all_(options.empty()) {
    for (const std::string& option : options) {
      options_.add(option);
      firstBytes_.set(static_cast<unsigned char>(option.c_str()[0]));
    }
  }

  template <std::size_t Size>
  [[nodiscard]] bool passes(const char (&field)[Size]) const {
    if (!firstBytes_.test(static_cast<unsigned char>(field[0]))) return all_;
    return options_.find(boundedView(field)) != KeywordPool::kNone;
  }

 private:
  bool all_;
  KeywordPool options_;
  std::bitset<256> firstBytes_;
};

void removeFirst(OptionCatalogue::Choices& choices, std::string_view choice) {
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
  OptionCatalogue& options = allOptionsAndChoicesDict.emplace();
  if (ppd->groups == nullptr) return;
  for (int index = 0; index < ppd->num_groups; ++index)
    addOptionsFromGroup(&ppd->groups[index], options);
  options.shrink();
}

void PPDInfo::addOptionsFromGroup(const ppd_group_t* group, OptionCatalogue& options) {
  if (group == nullptr) return;
  for (int index = 0; index < group->num_options; ++index) {
    if (group->options != nullptr) addOption(group->options[index], options);
    if (group->subgroups == nullptr) continue;
    for (int subgroup = 0; subgroup < group->num_subgroups; ++subgroup) {
      addOptionsFromGroup(&group->subgroups[subgroup], options);
    }
  }
}

void PPDInfo::addChoicesFromOption(const ppd_option_t* option, OptionCatalogue& options) {
  for (const ppd_choice_t& choice : choicesOf(option)) {
    if (const auto name = keyword(choice.choice)) options.addChoice(*name);
  }
}

void PPDInfo::reloadMarkedChoices(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  MarkedChoices& marked = markedChoicesDict.emplace();
  if (allOptionsAndChoicesDict) {
    const KeywordPool& options = allOptionsAndChoicesDict->options();
    for (KeywordPool::Id id = 0; id < options.size(); ++id) {
      const std::string_view option = options.first(id);
      const ppd_choice_t* choice = ppdFindMarkedChoice(ppd, option.data());
      if (choice == nullptr) continue;
      if (const auto name = keyword(choice->choice)) marked.mark(option, *name);
    }
  }
  marked.shrink();
  applyMarkedChoices();
}

std::optional<std::string> PPDInfo::currentMarkedChoiceForOption(std::string_view option) const {
  const auto choice = markedChoicesDict ? markedChoicesDict->choiceOf(option) : std::nullopt;
  return choice ? std::optional<std::string>(*choice) : std::nullopt;
}

std::optional<OptionCatalogue::Choices> PPDInfo::allChoicesForOption(
    std::string_view option) const {
  return allOptionsAndChoicesDict ? allOptionsAndChoicesDict->choicesOf(option) : std::nullopt;
}

bool PPDInfo::isOEMPPD() const {
  return manufacturer && manufacturer->find(kMaker) == std::string::npos;
}

void PPDInfo::loadConstraintsFor(const Choices& options, const ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  constraintsDict.emplace();
  if (ppd->consts == nullptr) return;
  const OptionFilter filter(options);
  for (int index = 0; index < ppd->num_consts; ++index) {
    const ppd_const_t& constraint = ppd->consts[index];
    if (!filter.passes(constraint.option1) && !filter.passes(constraint.option2)) continue;
    // Most PPDs list each constraint from both sides, one below the other.
    if (index > 0 && mirrored(constraint, ppd->consts[index - 1])) continue;
    const auto o1 = keyword(constraint.option1);
    const auto o2 = keyword(constraint.option2);
    if (!o1 || !o2) continue;
    enter(*o1, keyword(constraint.choice1).value_or(""), *o2,
          keyword(constraint.choice2).value_or(""), Directions::kBoth);
  }
  constraintsDict->shrink();
  applyMarkedChoices();
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
  enter(o1, c1, o2, c2, Directions::kOne);
  applyMarkedChoices();
}

PPDInfo::Choices PPDInfo::getAllConstrainableChoicesFromOption(std::string_view option) const {
  const OptionCatalogue::Choices choices = constrainableChoices(option);
  return {choices.begin(), choices.end()};
}

bool PPDInfo::willAllowChangeOfOption(std::string_view option, std::string_view choice) const {
  return !constraintsDict || constraintsDict->allows(option, choice);
}

std::vector<PPDInfo::MarkedChoice> PPDInfo::choicesForbidding(std::string_view option,
                                                              std::string_view choice) const {
  if (!constraintsDict) return {};
  return constraintsDict->forbidding(option, choice);
}

OptionCatalogue::Choices PPDInfo::constrainableChoices(std::string_view option) const {
  if (!allOptionsAndChoicesDict) return {};
  OptionCatalogue::Choices choices =
      allOptionsAndChoicesDict->choicesOf(option).value_or(OptionCatalogue::Choices());
  removeFirst(choices, "None");
  removeFirst(choices, "False");
  return choices;
}

void PPDInfo::enter(std::string_view o1, std::string_view c1, std::string_view o2,
                    std::string_view c2, Directions directions) {
  const auto forEachChoice = [this](std::string_view option, std::string_view choice, auto visit) {
    if (!choice.empty()) return visit(choice);
    for (const std::string_view any : constrainableChoices(option))
      visit(any);
  };
  forEachChoice(o1, c1, [&](std::string_view choice1) {
    const auto id1 = constraintsDict->choiceId(o1, choice1);
    forEachChoice(o2, c2, [&](std::string_view choice2) {
      const auto id2 = constraintsDict->choiceId(o2, choice2);
      constraintsDict->add(id1, id2);
      if (directions == Directions::kBoth) constraintsDict->add(id2, id1);
    });
  });
}

// The table answers by the choices that are marked now, whichever of the two was loaded last.
void PPDInfo::applyMarkedChoices() {
  if (constraintsDict && markedChoicesDict) constraintsDict->setMarked(*markedChoicesDict);
}

}  // namespace publishing
