// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {

using Words = std::vector<std::string>;

inline constexpr const char* kPPD = "tests/data/zephrel-ps-9000.ppd";

// The program publishing where there is no print server, with a small document.
class Publishing : public ::testing::Test {
 protected:
  Publishing() : document_(write("document.ps", "%!PS\nshowpage\n")) {}

  // No server is reached: nothing listens at this address.
  [[nodiscard]] Outcome run(Words words) const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    return runProgram(words, {{"CUPS_SERVER", "127.0.0.1:1"}, {"XDG_CONFIG_HOME", folder_.path()}});
  }

  // "print" on the PPD, without printing.
  [[nodiscard]] Outcome dryRun(const Words& options) const {
    Words words = {"print", "--ppd", kPPD, "--dry-run", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(document_);
    return run(words);
  }

  [[nodiscard]] std::string write(const std::string& name, const std::string& content) const {
    return folder_.file(name, content);
  }

  [[nodiscard]] std::string path(const std::string& name) const { return folder_ / name; }

  TemporaryFolder folder_;
  std::string document_;
};

}  // namespace publishing
