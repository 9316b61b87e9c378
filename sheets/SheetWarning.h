// SPDX-License-Identifier: Apache-2.0
// What a job asked for on its sheets and does not get. Data only: the words are made by whoever
// shows it.
#pragma once

#include <string>
#include <vector>

namespace publishing {

struct SheetWarning {
  enum class Kind {
    // Covers and inserts are left out, because...
    SeveralPagesASide,  // ...several pages share a side; text: the value of number-up
    Booklet,            // ...the job is a booklet; text: the value of booklet
    ReverseOrder,       // ...the last page comes out first; text: the order
    // Covers are left out, because...
    UnknownCoverSides,  // ...the value of the cover sides is none of the panel's; text: the value
    NoCoverChosen,      // ...it is neither the front cover nor both; text: the value
    // Inserts are left out, because...
    UnknownInsertSides,  // ...the value of the insert sides is none of the panel's; text: the value
    NoPagesListed,       // ...there is no page in the list
    // Parts of the list of pages are left out.
    UnreadablePages,  // text: the entries that are no page numbers
    PageOnCover,      // pages: those that lie on a cover and cannot have an insert
    PageBeyondEnd     // pages: those beyond the end of the document
  };

  Kind kind = Kind::NoPagesListed;
  // Ascending.
  std::vector<int> pages;
  // A value as the job gave it: at most 40 bytes of printable ASCII, what else there was is
  // replaced by "?", what was longer ends in "...".
  std::string text;

  bool operator==(const SheetWarning&) const = default;
};

}  // namespace publishing
