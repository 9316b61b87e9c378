// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoverConstraints.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace publishing {
namespace {

// "*Option" or "*Option choice", the words as they stand in the PPD.
struct Side {
  std::string_view option;
  std::string_view choice;

  [[nodiscard]] std::string text() const {
    return std::string(option) + (choice.empty() ? "" : " " + std::string(choice));
  }
};

struct Constraint {
  std::string_view keyword;
  std::vector<Side> sides;
};

// Nothing for any other statement and for one that is no constraint between options.
std::optional<Constraint> constraintIn(const PPDStatement& statement) {
  if (statement.keyword != "UIConstraints" && statement.keyword != "NonUIConstraints" &&
      statement.keyword != "cupsUIConstraints")
    return std::nullopt;
  // A quote would make what follows a part of its value.
  if (statement.value.find('"') != std::string_view::npos) return std::nullopt;
  Constraint constraint{statement.keyword, {}};
  for (const std::string_view word : wordsOf(statement.value)) {
    if (word.starts_with('*')) {
      constraint.sides.push_back({word, {}});
    } else if (!constraint.sides.empty()) {
      constraint.sides.back().choice = word;
    }
  }
  return constraint.sides.size() > 1 ? std::optional(constraint) : std::nullopt;
}

bool isAbout(const Side& side, const MediaOption& option) {
  return sameKeyword(side.option.substr(1), option.keyword);
}

bool switchesOn(std::string_view choice) {
  return !sameKeyword(choice, "None") && !sameKeyword(choice, "Off") &&
         !sameKeyword(choice, "False");
}

bool means(const Side& side, const CoverChoice& cover) {
  return side.choice.empty() ? switchesOn(cover.choice->keyword)
                             : sameKeyword(side.choice, cover.choice->keyword);
}

// The constraint with this choice in place of the medium that it stands for; nothing when it is not
// about that medium, or about nothing else: a tray of the body does not exclude one of the cover.
std::optional<Constraint> withCover(Constraint constraint, const std::string& option,
                                    const CoverChoice& cover) {
  bool found = false;
  bool others = false;
  for (Side& side : constraint.sides) {
    if (!isAbout(side, *cover.option)) {
      others = true;
    } else if (means(side, cover)) {
      side = {option, cover.keyword};
      found = true;
    } else {
      return std::nullopt;
    }
  }
  return found && others ? std::optional(constraint) : std::nullopt;
}

std::string lineOf(const Constraint& constraint) {
  std::string sides;
  for (const Side& side : constraint.sides)
    sides += (sides.empty() ? "" : " ") + side.text();
  const std::string line = "*" + std::string(constraint.keyword) + ": ";
  return constraint.keyword == "cupsUIConstraints" ? line + '"' + sides + '"' : line + sides;
}

}  // namespace

std::vector<std::string> repeatedConstraints(const std::vector<PPDStatement>& statements,
                                             const std::vector<CoverChoice>& choices,
                                             const std::vector<std::string>& options) {
  std::vector<std::string> keywords;
  std::transform(options.begin(), options.end(), std::back_inserter(keywords),
                 [](const std::string& option) { return "*" + option; });
  std::vector<std::string> lines;
  for (const PPDStatement& statement : statements) {
    const auto constraint = constraintIn(statement);
    if (!constraint) continue;
    for (const std::string& keyword : keywords) {
      for (const CoverChoice& choice : choices) {
        if (const auto repeated = withCover(*constraint, keyword, choice))
          lines.push_back(lineOf(*repeated));
      }
    }
  }
  return lines;
}

}  // namespace publishing
