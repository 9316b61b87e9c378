// SPDX-License-Identifier: Apache-2.0
#include "base/TextFile.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

TEST(TextFile, IsReadWhole) {
  const TemporaryFolder folder;
  const TextFile file = readTextFile(folder.file("notes", "one\ntwo"), 7);
  EXPECT_TRUE(file.isRead());
  EXPECT_EQ(file.text, "one\ntwo");
  EXPECT_EQ(file.fault, "");
  EXPECT_TRUE(readTextFile(folder.file("empty", ""), 0).isRead());
}

TEST(TextFile, ThatIsMissingIsNoFault) {
  const TemporaryFolder folder;
  const std::string file = folder.file("notes", "");
  for (const std::string& path : {folder / "absent", folder / "no/folder/notes", file + "/notes"}) {
    const TextFile missing = readTextFile(path, 100);
    EXPECT_TRUE(missing.isMissing()) << path;
    EXPECT_EQ(missing.fault, "") << path;
  }
}

TEST(TextFile, ThatIsUnusableSaysWhy) {
  const TemporaryFolder folder;
  const struct {
    std::string path;
    const char* fault;
  } cases[] = {
      {folder.path(), "it is not a regular file"},
      {"/dev/null", "it is not a regular file"},
      {folder.file("long", "12345678"), "it is too large"},
      {folder.file("binary", std::string("a\0b", 3)), "it contains NUL bytes"},
  };
  for (const auto& [path, fault] : cases) {
    const TextFile file = readTextFile(path, 7);
    EXPECT_TRUE(file.isUnusable()) << path;
    EXPECT_EQ(file.fault, fault) << path;
    EXPECT_EQ(file.text, "") << path;
  }
}

}  // namespace
}  // namespace publishing
