// SPDX-License-Identifier: Apache-2.0
// Settings files of any content. Loading gives only values that a job can carry, what could not be
// understood is kept, and what was loaded can be stored and loaded again unchanged.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "fuzz/Require.h"
#include "printing/JobTicket.h"
#include "printing/StoredSettings.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

constexpr const char* kQueue = "Queue";

bool isKeptIn(const TemporaryFolder& folder, const std::string& contents) {
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    if (contentsOfFile(entry.path()) == contents) return true;
  }
  return false;
}

std::string joined(const StoredSettings::Values& values) {
  std::string text;
  for (const auto& [key, value] : values)
    text += key + "=" + value + "\n";
  return text;
}

void check(const TemporaryFolder& folder, const std::string& contents) {
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    std::filesystem::remove(entry);
  (void)folder.file("Queue.conf", contents);
  const StoredSettings settings(folder.path());

  const StoredSettings::Loaded loaded = settings.load(kQueue);
  for (const auto& [key, value] : loaded.values) {
    if (key == kPageinsertNums) {
      require(value.find_first_not_of("0123456789-,") == std::string::npos, "an unclean list");
    } else if (key.ends_with("Text")) {
      require(shown(value) == value, "an unclean text");
    } else {
      checkJobOption(key, value);
    }
  }
  require(isKeptIn(folder, contents), "loading lost the file");

  settings.store(kQueue, loaded.values);
  const StoredSettings::Loaded again = settings.load(kQueue);
  require(again.values == loaded.values,
          "stored:\n" + joined(loaded.values) + "loaded:\n" + joined(again.values));
  require(again.warnings.size() <= loaded.warnings.size(), "storing made new faults");
  // A file with nothing but sound entries is simply written anew.
  require(loaded.warnings.empty() || again.warnings.size() == loaded.warnings.size() ||
              isKeptIn(folder, contents),
          "storing lost what could not be understood");
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // In memory where that can be had: each store waits for the disk.
  static const bool inMemory =
      std::filesystem::is_directory("/dev/shm") && setenv("TMPDIR", "/dev/shm", 1) == 0;
  (void)inMemory;
  static const publishing::TemporaryFolder folder;
  publishing::check(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
