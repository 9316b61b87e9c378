// SPDX-License-Identifier: Apache-2.0
#include "tests/cups/PrivateCups.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <cups/cups.h>

namespace publishing {
namespace {

PrivateCups* running = nullptr;

}  // namespace

PrivateCups& PrivateCups::instance() {
  return *running;
}

// The standard output of the tool.
std::string PrivateCups::run(const std::string& arguments) const {
  const std::string command = "'" PRIVATE_CUPS "' " + arguments;
  std::FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 256> buffer{};
  while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
    output += buffer.data();
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

// The server's user must get into the folder; the user's own settings must not get into the tests.
void PrivateCups::SetUp() {
  folder_ = std::make_unique<TemporaryFolder>();
  std::filesystem::permissions(folder_->path(), std::filesystem::perms(0755));
  const std::string said = run("start " + *folder_ / "cups" + " " + build_);
  const std::string key = "CUPS_SERVER=";
  ASSERT_EQ(said.rfind(key, 0), 0u) << said;
  server_ = said.substr(key.size(), said.find('\n') - key.size());
  setenv("CUPS_SERVER", server_.c_str(), 1);
  setenv("HOME", folder_->path().c_str(), 1);
  for (const char* name : {"LPDEST", "PRINTER"})
    unsetenv(name);
  cupsSetServer(nullptr);
  running = this;
}

void PrivateCups::TearDown() {
  (void)run("stop " + *folder_ / "cups");
  folder_.reset();
  running = nullptr;
}

void PrivateCups::addQueue(const std::string& name, const std::string& ppd) const {
  (void)run("add-queue " + *folder_ / "cups" + " " + name + " " + ppd);
}

std::string PrivateCups::received(int job, const std::string& file) const {
  return contentsOfFile(out() + "/job-" + std::to_string(job) + "/" + file);
}

std::map<std::string, std::string> PrivateCups::receivedOptions(int job) const {
  cups_option_t* options = nullptr;
  const int count = cupsParseOptions(received(job, "options").c_str(), 0, &options);
  std::map<std::string, std::string> map;
  for (int i = 0; i < count; ++i)
    map[options[i].name] = options[i].value;
  cupsFreeOptions(count, options);
  return map;
}

}  // namespace publishing
