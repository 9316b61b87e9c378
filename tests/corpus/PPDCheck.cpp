// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/PPDCheck.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <string_view>

#include "Publishing/ppd/PPDFields.h"
#include "Publishing/ppd/PPDInfo.h"

namespace publishing::corpus {
namespace {

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};

std::string reasonNotOpened() {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  return std::string(ppdErrorString(status)) + " on line " + std::to_string(line);
}

Count oneWayCount(const std::vector<TrayConstraint>& constraints) {
  const auto key = [](const TrayConstraint& constraint, bool trayFirst) {
    return std::string(trayFirst ? ">" : "<") + constraint.tray.choice + ' ' +
           constraint.other.option + ' ' + constraint.other.choice;
  };
  std::set<std::string> known;
  for (const TrayConstraint& constraint : constraints)
    known.insert(key(constraint, constraint.trayFirst));
  return static_cast<Count>(
      std::count_if(constraints.begin(), constraints.end(), [&](const TrayConstraint& constraint) {
        return !known.contains(key(constraint, !constraint.trayFirst));
      }));
}

// Every option, in libcups's own list: sorted, not by groups. Collected first, for a look-up in the
// PPD moves the place that ppdNextOption goes on from.
std::vector<ppd_option_t*> allOptionsOf(ppd_file_t* ppd) {
  std::vector<ppd_option_t*> options;
  for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr; option = ppdNextOption(ppd))
    options.push_back(option);
  return options;
}

using Forbidding = std::map<std::string, std::string>;  // choices by option

Forbidding onlyInFirst(const Forbidding& first, const Forbidding& second) {
  Forbidding only;
  std::set_difference(first.begin(), first.end(), second.begin(), second.end(),
                      std::inserter(only, only.end()));
  return only;
}

class PPDCheck {
 public:
  PPDCheck(ppd_file_t* ppd, const std::string& name, Tally& tally)
      : ppd_(ppd),
        name_(name),
        tally_(tally),
        options_(allOptionsOf(ppd)),
        trayConstraints_(trayConstraintsOf(ppd)),
        oracle_(ppd),
        seed_(name.begin(), name.end()),
        random_(seed_) {
    ppdMarkDefaults(ppd_);
    info_.loadPPDFile(ppd_);
    info_.loadConstraintsOnlyFor({kTray}, ppd_);
  }

  void run(int rounds) {
    countConstraints();
    compareCatalogue();
    for (int round = 0; round <= rounds; ++round) {
      if (round > 0) markAtRandom();
      info_.reloadMarkedChoices(ppd_);
      compareMarks();
      compareTrays();
    }
  }

 private:
  void countConstraints() {
    tally_.constraints += static_cast<Count>(ppd_->num_consts);
    tally_.trayConstraints += trayConstraints_.size();
    tally_.openTrayConstraints += static_cast<Count>(
        std::count_if(trayConstraints_.begin(), trayConstraints_.end(), [](const auto& constraint) {
          return constraint.tray.choice.empty() || constraint.other.choice.empty();
        }));
    if (!trayConstraints_.empty()) ++tally_.trayFiles;
    if (oneWayCount(trayConstraints_) > 0) ++tally_.oneWayFiles;
  }

  void compareCatalogue() {
    std::map<std::string_view, std::vector<PPDInfo::Choices>> known;
    for (const ppd_option_t* option : options_) {
      auto& choices = known[boundedView(option->keyword)].emplace_back();
      for (const ppd_choice_t& choice : choicesOf(option))
        choices.emplace_back(boundedView(choice.choice));
      ++tally_.options;
      tally_.choices += choices.size();
    }
    PPDInfo::OptionsAndChoices catalogue;
    for (int index = 0; index < ppd_->num_groups; ++index)
      PPDInfo::addOptionsFromGroup(&ppd_->groups[index], catalogue);
    if (catalogue.size() != known.size()) wrong("number of options");
    for (const auto& [option, lists] : known)
      compareOption(option, lists);
  }

  void compareOption(std::string_view option, const std::vector<PPDInfo::Choices>& lists) {
    tally_.repeatedOptions += lists.size() - 1;
    const PPDInfo::Choices* choices = info_.allChoicesForOption(option);
    if (choices == nullptr || std::find(lists.begin(), lists.end(), *choices) == lists.end())
      wrong("choices of option " + std::string(option));
  }

  void compareMarks() {
    for (const ppd_option_t* option : options_) {
      const std::string keyword(boundedView(option->keyword));
      if (info_.currentMarkedChoiceForOption(keyword) != markedChoiceOf(keyword))
        wrong("marked choice of option " + keyword);
      ++tally_.marks;
    }
  }

  [[nodiscard]] std::optional<std::string> markedChoiceOf(const std::string& option) const {
    const ppd_choice_t* marked = ppdFindMarkedChoice(ppd_, option.c_str());
    return marked != nullptr ? std::optional<std::string>(boundedView(marked->choice))
                             : std::nullopt;
  }

  void compareTrays() {
    const ppd_size_t* size = ppdPageSize(ppd_, nullptr);
    const std::string pageSize(size != nullptr ? boundedView(size->name) : "");
    for (const ppd_choice_t& choice : choicesOf(ppdFindOption(ppd_, kTray)))
      compareTray({trayConstraints_, std::string(boundedView(choice.choice)), pageSize});
  }

  void compareTray(const TrayQuery& query) {
    const bool allowed = info_.willAllowChangeOfOption(kTray, query.tray);
    const auto cups = oracle_.forbidding(query.tray);
    ++tally_.queries;
    if (!allowed) ++tally_.forbiddenByPanel;
    if (!cups.empty()) ++tally_.forbiddenByCups;
    const bool unequal = allowed != cups.empty();
    if (unequal) ++tally_.unequalAnswers;

    Forbidding panel;
    for (const auto& [option, choice] : info_.choicesForbidding(kTray, query.tray))
      panel.emplace(option, choice);
    std::set<Difference> reasons;
    for (const auto& [option, choice] : onlyInFirst(panel, cups))
      reasons.insert(count(whyOnlyPanelForbids(query, {option, choice})));
    for (const auto& [option, choice] : onlyInFirst(cups, panel))
      reasons.insert(
          count(whyOnlyCupsForbids(query, {option, choice}, markedChoiceOf(option).value_or(""))));
    if (!unequal) return;
    if (reasons.empty()) reasons.insert(count(Difference::Unexplained));
    for (const Difference reason : reasons)
      ++tally_.differences[reason].answers;
  }

  Difference count(Difference reason) {
    ++tally_.differences[reason].choices;
    tally_.differences[reason].files.insert(name_);
    return reason;
  }

  void markAtRandom() {
    for (const ppd_option_t* option : options_) {
      const auto choices = choicesOf(option);
      if (!choices.empty())
        ppdMarkOption(ppd_, option->keyword, choices[random_() % choices.size()].choice);
    }
    if (trayConstraints_.empty()) return;
    const Side& other = trayConstraints_[random_() % trayConstraints_.size()].other;
    if (!other.choice.empty()) ppdMarkOption(ppd_, other.option.c_str(), other.choice.c_str());
  }

  void wrong(const std::string& what) { tally_.wrong.push_back(name_ + ": " + what); }

  ppd_file_t* ppd_;
  const std::string& name_;
  Tally& tally_;
  std::vector<ppd_option_t*> options_;
  std::vector<TrayConstraint> trayConstraints_;
  TrayOracle oracle_;
  std::seed_seq seed_;
  std::mt19937 random_;
  PPDInfo info_;
};

}  // namespace

void checkPPD(ppd_file_t* ppd, const std::string& name, int rounds, Tally& tally) {
  PPDCheck(ppd, name, tally).run(rounds);
}

void checkFile(const std::filesystem::path& path, const std::string& name, int rounds,
               Tally& tally) {
  const Count size = std::filesystem::file_size(path);
  ++tally.files;
  if (size > kLargeFile) ++tally.largeFiles;
  tally.largestFile = std::max(tally.largestFile, size);
  const std::unique_ptr<ppd_file_t, ClosePPD> ppd(ppdOpenFile(path.c_str()));
  if (ppd == nullptr) {
    tally.unopened.push_back(name + ": " + reasonNotOpened());
    return;
  }
  checkPPD(ppd.get(), name, rounds, tally);
}

}  // namespace publishing::corpus
