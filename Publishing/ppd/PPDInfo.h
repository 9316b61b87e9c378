// The panel's model of a printer's PPD: which options and choices there are, which choices are
// marked, and which choices of different options exclude each other.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <cups/ppd.h>

#include "Publishing/ppd/ConstraintTable.h"
#include "Publishing/ppd/MarkedChoices.h"
#include "Publishing/ppd/OptionCatalogue.h"

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

  using MarkedChoice = OptionChoice;

  // Replaces manufacturer, catalogue and marked choices; must come before any constraints are
  // loaded, which are expanded from the catalogue. Constraints of an earlier PPD stay until they
  // are loaded anew.
  void loadPPDFile(ppd_file_t* ppd);

  // Replaces the catalogue. Of two options with the same keyword the later visited one wins.
  void loadAllOptionsAndChoices(const ppd_file_t* ppd);

  // Adds the options of a group. The subgroups are visited after every option of the group: those
  // of a group without options never, and a subgroup's option replaces one of the same keyword.
  static void addOptionsFromGroup(const ppd_group_t* group, OptionCatalogue& options);

  // Appends the option's choices, one entry each and none merged, to the list begun last.
  static void addChoicesFromOption(const ppd_option_t* option, OptionCatalogue& options);

  // Replaces the marked choices by those that libcups has marked now for the options of the
  // catalogue. An option without a marked choice has no entry.
  void reloadMarkedChoices(ppd_file_t* ppd);

  // The choice marked at the last reload; nothing for none.
  [[nodiscard]] std::optional<std::string> currentMarkedChoiceForOption(
      std::string_view option) const;

  // The catalogue's own keywords, valid until the next load; nothing for an option that is not in
  // it.
  [[nodiscard]] std::optional<OptionCatalogue::Choices> allChoicesForOption(
      std::string_view option) const;

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

  // The option's choices in catalogue order without the first "None" and the first "False": with
  // those a feature is off and conflicts with nothing. (libcups excludes "Off" as well.)
  [[nodiscard]] Choices getAllConstrainableChoicesFromOption(std::string_view option) const;

  // False when a choice that was marked at the last reload forbids the change.
  [[nodiscard]] bool willAllowChangeOfOption(std::string_view option,
                                             std::string_view choice) const;

  // The marked choices that forbid the change, to tell a user why; none when it is allowed.
  [[nodiscard]] std::vector<MarkedChoice> choicesForbidding(std::string_view option,
                                                            std::string_view choice) const;

 private:
  [[nodiscard]] OptionCatalogue::Choices constrainableChoices(std::string_view option) const;
  void enter(const Keyword& o1, const Keyword& c1, const Keyword& o2, const Keyword& c2,
             ConstraintTable::Directions directions);
  void applyMarkedChoices();

  std::optional<std::string> manufacturer;
  std::optional<ConstraintTable> constraintsDict;
  std::optional<MarkedChoices> markedChoicesDict;
  std::shared_ptr<const OptionCatalogue> allOptionsAndChoicesDict;
  // Reserved: the options to watch are handed to each load instead.
  std::optional<Choices> optionsToSupportConstraintsOn;
};

}  // namespace publishing
