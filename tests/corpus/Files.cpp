// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/Files.h"

#include <algorithm>
#include <stdexcept>

namespace publishing::corpus {

namespace fs = std::filesystem;

std::vector<fs::path> filesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  if (files.empty()) throw std::runtime_error(folder.string() + ": no files");
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace publishing::corpus
