#include "Publishing/ppd/PPDInfo.h"

#include <algorithm>
#include <span>

#include "Publishing/ppd/PPDFields.h"

namespace publishing {
namespace {

constexpr const char* kMaker = "Zephrel";

// The keyword in that field; nothing when it is not valid UTF-8.
template <std::size_t Size>
std::optional<std::string_view> keyword(const char (&field)[Size]) {
  return viewOfPPD(field, PPDEncoding::UTF8);
}

void addOption(const ppd_option_t& option, OptionCatalogue& options) {
  const auto name = keyword(option.keyword);
  if (!name) return;
  options.beginOption(*name);
  PPDInfo::addChoicesFromOption(&option, options);
}

// Makes room for the options of these groups.
void reserve(OptionCatalogue& options, std::span<const ppd_group_t> groups) {
  std::size_t optionCount = 0;
  std::size_t choiceCount = 0;
  for (const ppd_group_t& group : groups) {
    for (const ppd_option_t& option : optionsOf(&group)) {
      ++optionCount;
      choiceCount += choicesOf(&option).size();
    }
  }
  options.reserve(optionCount, choiceCount);
}

// Whether ppdFindOption finds each of the PPD's options under its keyword. It heeds no case, so
// that of options with the same keyword but for case it finds the first one only, and reads no
// keyword that fills its array.
bool findsEachOption(ppd_file_t* ppd) {
  const auto folded = [](char byte) {
    return byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte;
  };
  std::string_view before;
  for (const ppd_option_t* option = ppdFirstOption(ppd); option != nullptr;
       option = ppdNextOption(ppd)) {
    const std::string_view keyword = boundedView(option->keyword);
    if (keyword.size() == PPD_MAX_NAME) return false;
    if (std::ranges::equal(before, keyword, {}, folded, folded)) return false;
    before = keyword;
  }
  return ppd->options != nullptr;
}

// For each of these options the choice that ppdFindMarkedChoice would find, or null where it has to
// be asked. It searches two sorted lists by text for every option, which is half of a load; what is
// marked is one list, and short.
std::vector<const ppd_choice_t*> choicesMarkedIn(ppd_file_t* ppd, const KeywordPool& options) {
  std::vector<const ppd_choice_t*> found(options.size());
  if (!findsEachOption(ppd)) return found;
  for (void* entry = cupsArrayFirst(ppd->marked); entry != nullptr;
       entry = cupsArrayNext(ppd->marked)) {
    const auto* choice = static_cast<const ppd_choice_t*>(entry);
    const KeywordPool::Id id = options.find(Keyword(choice->option->keyword));
    if (id != KeywordPool::kNone && found[id] == nullptr) found[id] = choice;
  }
  return found;
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
  OptionCatalogue options;
  reserve(options, groupsOf(ppd));
  for (const ppd_group_t& group : groupsOf(ppd))
    addOptionsFromGroup(&group, options);
  options.shrink();
  allOptionsAndChoicesDict = std::make_shared<const OptionCatalogue>(std::move(options));
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
  const auto catalogue = allOptionsAndChoicesDict ? allOptionsAndChoicesDict
                                                  : std::make_shared<const OptionCatalogue>();
  const KeywordPool& options = catalogue->options();
  const auto found = choicesMarkedIn(ppd, options);
  MarkedChoices& marked = markedChoicesDict.emplace(catalogue);
  for (KeywordPool::Id id = 0; id < options.size(); ++id) {
    const ppd_choice_t* choice =
        found[id] != nullptr ? found[id] : ppdFindMarkedChoice(ppd, options.first(id).data());
    if (choice == nullptr) continue;
    if (const auto name = keyword(choice->choice)) marked.mark(id, *name);
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

// The table answers by the choices that are marked now, whichever of the two was loaded last.
void PPDInfo::applyMarkedChoices() {
  if (constraintsDict && markedChoicesDict) constraintsDict->setMarked(*markedChoicesDict);
}

}  // namespace publishing
