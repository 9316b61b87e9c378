// SPDX-License-Identifier: Apache-2.0
#include "tests/sheets/SheetExamples.h"

namespace publishing {

void PrintTo(const SheetExample& example, std::ostream* out) {
  *out << example.pages << " pages: " << example.sheets;
}

const std::vector<SheetExample>& sheetExamples() {
  static const std::vector<SheetExample> kExamples = {

      {"FrontOutside", 5, kTwoSided + covers("1", "1"), "C1|- B2|3 B4|5"},
      {"FrontInside", 5, kTwoSided + covers("1", "2"), "C-|1 B2|3 B4|5"},
      {"OneSidedFrontAndBack", 5, kOneSided + covers("2", "9"), "C1 B2 B3 B4 C5"},
      {"FrontOutsideAndBackOutside", 10, kTwoSided + covers("2", "5"),
       "C1|- B2|3 B4|5 B6|7 B8|9 C-|10"},
      {"TooFewPagesForTheBackCover", 2, kTwoSided + covers("2", "13"), "C1|- C-|2"},
      {"BlankInserts", 10, kTwoSided + inserts("0", "5,8,"),
       "B1|2 B3|4 I-|- B5|6 B7|- I-|- B8|9 B10|-"},
      {"InsertsPrintedOnBothSides", 10, kTwoSided + inserts("3", "4,5,6,"),
       "B1|2 B3|- I4|- I5|- I6|7 B8|9 B10|-"},
      {"CollatedCopies", 3,
       kTwoSided + covers("2", "5") + Options{{"copies", "2"}, {"Collate", "true"}},
       "C1|- B2|- C-|3 C1|- B2|- C-|3"}};
  return kExamples;
}

}  // namespace publishing
