#include <algorithm>
#include <array>
#include <span>

#include "Publishing/ppd/PPDFields.h"
#include "Publishing/ppd/PPDInfo.h"

namespace publishing {
namespace {

using ChoiceId = ConstraintTable::ChoiceId;
using Directions = ConstraintTable::Directions;

// A set of option keywords that all pass when it is empty.
class OptionFilter {
 public:
  explicit OptionFilter(const PPDInfo::Choices& options) : all_(options.empty()) {
    for (const std::string& option : options) {
      options_.add(Keyword(option));
      firstBytes_[static_cast<unsigned char>(option.c_str()[0])] = true;
    }
  }

  // Whether an option that begins like this may pass: most differ in the first byte already.
  [[nodiscard]] bool mayPass(char firstByte) const {
    return all_ || firstBytes_[static_cast<unsigned char>(firstByte)];
  }

  [[nodiscard]] bool passes(const Keyword& option) {
    if (all_ || (option == last_ && !option.isEmpty())) return true;
    if (options_.find(option) == KeywordPool::kNone) return false;
    last_ = option;
    return true;
  }

 private:
  bool all_;
  KeywordPool options_;
  Keyword last_;  // the option that passed last, and is often the next
  std::array<bool, 256> firstBytes_{};
};

bool isUTF8(const Keyword& keyword) {
  return keyword.isShortASCII() || isValidIn(keyword.text(), PPDEncoding::UTF8);
}

// A choice that is not valid UTF-8 counts as empty.
Keyword validOrEmpty(const Keyword& choice) {
  return isUTF8(choice) ? choice : Keyword();
}

// The number of a choice, a new one when it is new; kNone when a keyword is not valid UTF-8, which
// has to be looked at once only.
ChoiceId validChoiceId(ConstraintTable& table, const Keyword& option, const Keyword& choice) {
  const ChoiceId id = table.find(option, choice);
  if (id != KeywordPool::kNone || !isUTF8(option) || !isUTF8(choice)) return id;
  return table.choiceId(option, choice);
}

// Enters the constraint when it names valid choices; false when it does not.
bool enterNamed(ConstraintTable& table, const Keyword& o1, const Keyword& c1, const Keyword& o2,
                const Keyword& c2) {
  if (c1.isEmpty() || c2.isEmpty()) return false;
  // Most PPDs list each constraint from both sides, one below the other.
  if (table.endsWith(o2, c2, o1, c1)) return true;
  const ChoiceId id1 = validChoiceId(table, o1, c1);
  const ChoiceId id2 = validChoiceId(table, o2, c2);
  if (id1 == KeywordPool::kNone || id2 == KeywordPool::kNone) return false;
  table.add(id1, id2, Directions::kBoth);
  return true;
}

void removeFirst(OptionCatalogue::Choices& choices, std::string_view choice) {
  const auto found = std::find(choices.begin(), choices.end(), choice);
  if (found != choices.end()) choices.erase(found);
}

}  // namespace

void PPDInfo::loadConstraintsFor(const Choices& options, const ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  ConstraintTable& table = constraintsDict.emplace();
  const std::span<const ppd_const_t> constraints = constraintsOf(ppd);
  if (constraints.empty()) return;
  table.reserve(constraints.size());
  OptionFilter filter(options);
  for (const ppd_const_t& constraint : constraints) {
    if (!filter.mayPass(constraint.option1[0]) && !filter.mayPass(constraint.option2[0])) continue;
    const Keyword o1(constraint.option1);
    const Keyword o2(constraint.option2);
    if (!filter.passes(o1) && !filter.passes(o2)) continue;
    const Keyword c1(constraint.choice1);
    const Keyword c2(constraint.choice2);
    if (!enterNamed(table, o1, c1, o2, c2) && isUTF8(o1) && isUTF8(o2))
      enter(o1, validOrEmpty(c1), o2, validOrEmpty(c2), Directions::kBoth);
  }
  table.shrink();
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
  enter(Keyword(o1), Keyword(c1), Keyword(o2), Keyword(c2), Directions::kOne);
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

void PPDInfo::enter(const Keyword& o1, const Keyword& c1, const Keyword& o2, const Keyword& c2,
                    Directions directions) {
  const auto forEachChoice = [this](const Keyword& option, const Keyword& choice, auto visit) {
    if (!choice.isEmpty()) return visit(constraintsDict->choiceId(option, choice));
    for (const std::string_view any : constrainableChoices(option.text()))
      visit(constraintsDict->choiceId(option, Keyword(any)));
  };
  forEachChoice(o1, c1, [&](ChoiceId id1) {
    forEachChoice(o2, c2, [&](ChoiceId id2) { constraintsDict->add(id1, id2, directions); });
  });
}

}  // namespace publishing
