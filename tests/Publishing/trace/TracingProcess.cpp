// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/trace/TracingProcess.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unicode/simpletz.h>
#include <unistd.h>

namespace publishing {

std::string readAll(int descriptor) {
  std::string bytes(1 << 16, '\0');
  std::string all;
  for (ssize_t got = 0; (got = ::read(descriptor, bytes.data(), bytes.size())) > 0;) {
    all.append(bytes, 0, static_cast<std::size_t>(got));
  }
  return all;
}

std::string pathOf(const MyDebug::LogFile& file) {
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file.descriptor()));
}

void setClockOfThisProcess() {
  icu::TimeZone::adoptDefault(new icu::SimpleTimeZone(getpid() % 40000 * 1000, u"Test"));
}

std::string inOwnProcess(const std::function<std::string()>& answer) {
  int ends[2];
  if (::pipe(ends) != 0) return "no pipe";
  std::fflush(nullptr);  // or both processes would write what is waiting
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    const std::string text = answer();
    const ssize_t written = ::write(ends[1], text.data(), text.size());
    std::exit(written == std::ssize(text) ? 0 : 1);  // an _exit would lose the coverage counts
  }
  ::close(ends[1]);
  std::string text = readAll(ends[0]);
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  return text;
}

std::string traced(const std::function<void()>& trace) {
  return inOwnProcess([&trace]() -> std::string {
    setClockOfThisProcess();
    trace();
    MyDebug::_debugSetup();
    const MyDebug::LogFile file = MyDebug::openLogFile();
    if (!file) return "no file";
    std::filesystem::remove(pathOf(file));
    return readAll(file.descriptor());
  });
}

}  // namespace publishing
