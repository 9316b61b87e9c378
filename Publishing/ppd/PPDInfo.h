// SPDX-License-Identifier: Apache-2.0
// The panel's model of a printer's PPD: which options and choices there are, which choices are
// marked, and which choices of different options exclude each other.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <cups/ppd.h>

namespace publishing {

// Reads opened PPDs and keeps copies of what it needs: no PPD must stay open for its sake. Holds
// keywords only, in the PPD's order, never the texts that users read. A null PPD is skipped
// everywhere and leaves all as it was.
//
// Keywords that are not valid UTF-8 cannot be handed to anyone: an option or choice with such a
// keyword is left out of the catalogue, a constraint on such an option is dropped, and such a
// choice in a constraint counts as empty, that is as any choice of its option.
//
// Not to be shared between threads.
class PPDInfo {
 public:
  using Choices = std::vector<std::string>;
  struct MarkedChoice {
    std::string option;
    std::string choice;
  };
  using OptionsAndChoices = std::map<std::string, Choices, std::less<>>;  // by option

  // Replaces manufacturer, catalogue and marked choices; must come before any constraints are
  // loaded, which are expanded from the catalogue. Constraints of an earlier PPD stay until they
  // are loaded anew.
  void loadPPDFile(ppd_file_t* ppd);

  // Replaces the catalogue. Of two options with the same keyword the later visited one wins.
  void loadAllOptionsAndChoices(const ppd_file_t* ppd);

  // Adds the options of a group. The subgroups are visited after every option of the group: those
  // of a group without options never, and a subgroup's option replaces one of the same keyword.
  static void addOptionsFromGroup(const ppd_group_t* group, OptionsAndChoices& dict);

  // Appends the option's choices, one entry each and none merged.
  static void addChoicesFromOption(const ppd_option_t* option, Choices& array);

  // Replaces the marked choices by those that libcups has marked now for the options of the
  // catalogue. An option without a marked choice has no entry.
  void reloadMarkedChoices(ppd_file_t* ppd);

  // The choice marked at the last reload; nothing for none.
  [[nodiscard]] std::optional<std::string> currentMarkedChoiceForOption(
      std::string_view option) const;

  // The catalogue's own list, which stays valid until the next load; null for an option that is not
  // in it.
  [[nodiscard]] const Choices* allChoicesForOption(std::string_view option) const;

  // Whether the PPD is another maker's: its manufacturer is known and does not contain "Zephrel"
  // (case matters). A PPD that names no manufacturer, or one that is not valid UTF-8, answers
  // false: nothing says that it is foreign.
  [[nodiscard]] bool isOEMPPD() const;

  // Replaces the constraint table by the PPD's constraints that involve one of `options` on either
  // side; by all of them when the list is empty.
  void loadConstraintsFor(const Choices& options, const ppd_file_t* ppd);
  void loadConstraintsOnlyFor(const Choices& options, const ppd_file_t* ppd);
  void loadAllConstraintsFromPPD(const ppd_file_t* ppd);

  // Enters one direction of a constraint: while `o2` has `c2` marked, `o1` must not be changed to
  // `c1`. An empty choice stands for every constrainable choice of its option. Does nothing before
  // the first load of constraints.
  void addConstraintsForOption1(std::string_view o1, std::string_view c1, std::string_view o2,
                                std::string_view c2);

  // The option's choices in catalogue order without those that switch it off, see
  // withoutOffChoices.
  [[nodiscard]] Choices getAllConstrainableChoicesFromOption(std::string_view option) const;

  // False when a choice that was marked at the last reload forbids the change.
  [[nodiscard]] bool willAllowChangeOfOption(std::string_view option,
                                             std::string_view choice) const;

  // The marked choices that forbid the change, to tell a user why, by option keyword; none when it
  // is allowed.
  [[nodiscard]] std::vector<MarkedChoice> choicesForbidding(std::string_view option,
                                                            std::string_view choice) const;

 private:
  // For an option, for each of its choices, for each other option, the choices of that option that
  // forbid it while they are marked.
  using ForbiddingChoices = std::map<std::string, std::set<std::string, std::less<>>, std::less<>>;
  using ForbiddenChoices = std::map<std::string, ForbiddingChoices, std::less<>>;
  using ConstraintTable = std::map<std::string, ForbiddenChoices, std::less<>>;

  // Calls `visit` with that choice, or when it is empty with each that it stands for.
  template <typename Visit>
  void forEachChoiceMeant(std::string_view option, std::string_view choice,
                          const Visit& visit) const;

  std::optional<std::string> manufacturer;
  std::optional<ConstraintTable> constraintsDict;
  std::map<std::string, std::string, std::less<>> markedChoicesDict;  // choice by option
  OptionsAndChoices allOptionsAndChoicesDict;
  // Reserved: the options to watch are handed to each load instead.
  std::optional<Choices> optionsToSupportConstraintsOn;
};

}  // namespace publishing
