// SPDX-License-Identifier: Apache-2.0
// The program publishing as a user calls it, against a real print server.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/cups/PrivateCups.h"
#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {

using Words = std::vector<std::string>;

inline constexpr const char* kQueue = "Zephrel_PS_9000";
inline constexpr const char* kReport = TEST_DATA "/report.pdf";

class PublishingOnServer : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    PrivateCups::instance().addQueue(kQueue, TEST_DATA "/zephrel-ps-9000.ppd");
    PrivateCups::instance().addQueue("Second", TEST_DATA "/zephrel-ps-9000.ppd");
  }

  // A job that is still blocked would keep the next one waiting.
  void TearDown() override {
    for (const char* file : {"/fail", "/block"}) {
      if (std::filesystem::remove(cups_.out() + file)) cups({"cancel", "-a", kQueue});
    }
  }

  // The user has settings and lpoptions of this test alone.
  [[nodiscard]] std::map<std::string, std::string> environment() const {
    return {{"CUPS_SERVER", cups_.server()},
            {"XDG_CONFIG_HOME", config_.path()},
            {"HOME", home_.path()}};
  }

  [[nodiscard]] Outcome run(Words words) const {
    words.insert(words.begin(), PUBLISHING_PROGRAM);
    return runProgram(words, environment());
  }

  // By a shell: "$@" is the program and its words.
  [[nodiscard]] Outcome shell(const std::string& script, Words words) const {
    words.insert(words.begin(), {"/bin/sh", "-c", script, "sh", PUBLISHING_PROGRAM});
    return runProgram(words, environment());
  }

  [[nodiscard]] Outcome print(const Words& options) const {
    Words words = {"print", "-d", kQueue};
    words.insert(words.end(), options.begin(), options.end());
    words.emplace_back(kReport);
    return run(words);
  }

  // What the tools of CUPS say.
  Outcome cups(Words words) const {
    const std::string folder = words.front().find("lpadmin") == 0 || words.front().find("cups") == 0
                                   ? "/usr/sbin/"
                                   : "/usr/bin/";
    words.front() = folder + words.front();
    return runProgram(words, environment());
  }

  [[nodiscard]] nlohmann::json stored(const std::string& queue = kQueue) const {
    return nlohmann::json::parse(
        run({"settings", "show", "-d", queue, "--json"}).output)["settings"];
  }

  // The queue's jobs that the server knows, finished ones too.
  [[nodiscard]] std::ptrdiff_t jobs() const {
    const Outcome outcome = cups({"lpstat", "-W", "all", "-o"});
    return std::count(outcome.output.begin(), outcome.output.end(), '\n');
  }

  PrivateCups& cups_ = PrivateCups::instance();
  TemporaryFolder config_;
  TemporaryFolder home_;
};

}  // namespace publishing
