// SPDX-License-Identifier: Apache-2.0
#include "base/AtomicFile.h"

#include <filesystem>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/Descriptor.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

std::ptrdiff_t filesIn(const TemporaryFolder& folder) {
  return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

TEST(AtomicFile, LeavesTheEarlierFileUntilItIsWhole) {
  const TemporaryFolder folder;
  const std::string path = folder.file("settings", "old");
  {
    AtomicFile file(path, S_IRUSR | S_IWUSR);
    file.write("half");
    EXPECT_EQ(contentsOfFile(path), "old");
  }
  EXPECT_EQ(contentsOfFile(path), "old");
  EXPECT_EQ(filesIn(folder), 1);
  AtomicFile file(path, S_IRUSR | S_IWUSR);
  file.write("new");
  file.replace();
  EXPECT_EQ(contentsOfFile(path), "new");
  EXPECT_EQ(filesIn(folder), 1);
}

TEST(AtomicFile, TakesAlongWhatAKilledProcessLeft) {
  const TemporaryFolder folder;
  const Descriptor nameless(open(folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR));
  if (!nameless.isOpen()) GTEST_SKIP() << "the file system has no nameless files";
  const std::string path = folder.file("settings", "old");
  (void)folder.file("settings.publishing", "whole");
  replaceFile(path, "new");
  EXPECT_EQ(contentsOfFile(path), "new");
  EXPECT_EQ(filesIn(folder), 1);
}

}  // namespace
}  // namespace publishing
