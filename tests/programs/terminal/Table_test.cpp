// SPDX-License-Identifier: Apache-2.0
#include "programs/terminal/Table.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(Table, HasColumnsAsWideAsTheirWidestCell) {
  Table table;
  table.add({"Sheet", "Paper", "Front"});
  table.add({"1", "Coated", ""});
  table.add({"10", "", "7"});
  EXPECT_EQ(table.text(),
            "Sheet  Paper   Front\n"
            "1      Coated\n"
            "10             7");
}

TEST(Table, CountsThePlacesThatLettersTakeOnATerminal) {
  Table table;
  table.add({"é–", "1"});
  table.add({"厚紙", "2"});
  table.add({"e\u0301", "3"});
  EXPECT_EQ(table.text(), "é–    1\n厚紙  2\ne\u0301     3");
}

TEST(Table, WithoutRowsIsEmpty) {
  EXPECT_EQ(Table().text(), "");
}

}  // namespace
}  // namespace publishing
