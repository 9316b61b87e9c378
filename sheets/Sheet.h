// SPDX-License-Identifier: Apache-2.0
// A sheet of paper as it leaves the printer, and one of its sides.
//
// Pages are the images that reach the paper, counted from 1 after page ranges were applied.
#pragma once

#include <optional>
#include <string>

namespace publishing {

enum class SheetRole { FrontCover, Body, Insert, BackCover };

// "front-cover", "body", "insert", "back-cover".
const char* nameOf(SheetRole role);

// Stands for the page of a side on which nothing is printed.
inline constexpr int kBlankSide = 0;

struct Sheet {
  SheetRole role = SheetRole::Body;
  // Keyword of the PPD choice; empty: the medium of the body, whatever that is.
  std::string medium;
  int front = kBlankSide;
  // Nothing on a sheet of a one-sided job.
  std::optional<int> back;
  // The page whose size the blank sides have: the page on the other side; of a sheet without
  // pages the next page of the job, after the last page that one.
  int sizedAs = 0;

  bool operator==(const Sheet&) const = default;
};

struct SheetSide {
  // The sheet's place in the set, from 1.
  int sheet = 0;
  SheetRole role = SheetRole::Body;
  bool isBack = false;
  int page = kBlankSide;
  // The page whose size the side has: its own page, or for a blank side as in Sheet.
  int sizedAs = 0;

  bool operator==(const SheetSide&) const = default;
};

// A medium for people and for JSON: its keyword, or the given name of the body's medium.
inline const std::string& mediumName(const std::string& medium, const std::string& bodyMedium) {
  return medium.empty() ? bodyMedium : medium;
}

}  // namespace publishing
