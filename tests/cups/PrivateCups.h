// SPDX-License-Identifier: Apache-2.0
// The private CUPS server of tests/cups/private-cups, for GoogleTest programs.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {

// Runs one server for the whole test program and points libcups to it. Add it in main or through a
// namespace-scope variable: ::testing::AddGlobalTestEnvironment(new PrivateCups).
class PrivateCups : public ::testing::Environment {
 public:
  PrivateCups() = default;

  // A server with the filter for covers and inserts that is in the folder of that build.
  explicit PrivateCups(std::string build) : build_(std::move(build)) {}

  // The server of this program; it must be running.
  static PrivateCups& instance();

  // Fail the program's tests when the server cannot be started.
  void SetUp() override;
  void TearDown() override;

  // Adds a queue that stores what a printer would get.
  void addQueue(const std::string& name, const std::string& ppd) const;

  // "127.0.0.1:PORT".
  [[nodiscard]] const std::string& server() const { return server_; }

  // What reached the printer of a completed job: "data", "options" (the filters' argv[5]), "argv",
  // "environment".
  [[nodiscard]] std::string received(int job, const std::string& file) const;

  // The options as the filters parse them.
  [[nodiscard]] std::map<std::string, std::string> receivedOptions(int job) const;

  // The folder where the printers store jobs; a file "fail" or "block" there makes them fail or
  // hang.
  [[nodiscard]] std::string out() const { return *folder_ / "cups/out"; }

 private:
  [[nodiscard]] std::string run(const std::string& arguments) const;

  std::string build_;
  std::unique_ptr<TemporaryFolder> folder_;
  std::string server_;
};

}  // namespace publishing
