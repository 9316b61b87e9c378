// SPDX-License-Identifier: Apache-2.0
#include "base/FileName.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(FileName, IsReadableForReadableNames) {
  EXPECT_EQ(fileNameOf("Zephrel_PS-9000.v2~"), "Zephrel_PS-9000.v2~");
  EXPECT_EQ(fileNameOf("a b/é"), "a%20b%2F%C3%A9");
  EXPECT_EQ(fileNameOf(""), "");
}

TEST(FileName, IsAnotherOneForEveryName) {
  const std::string longName(500, 'x');
  const std::string names[] = {"a b",          "a%20b",        "a/b",
                               "A b",          "..",           longName,
                               longName + "y", "y" + longName, std::string("a\0b", 3)};
  std::set<std::string> files;
  for (const std::string& name : names) {
    const std::string file = fileNameOf(name);
    EXPECT_TRUE(files.insert(file).second) << name;
    EXPECT_EQ(file.find_first_of(std::string("/\0", 2)), std::string::npos) << name;
    EXPECT_LE(file.size(), 201U) << name;
  }
}

}  // namespace
}  // namespace publishing
