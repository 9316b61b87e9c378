// SPDX-License-Identifier: Apache-2.0
// The trace log's file: its name, its mode, and lines that cannot be written.
#include <algorithm>
#include <climits>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unicode/locid.h>
#include <unicode/simpletz.h>
#include <unistd.h>

#include "Publishing/trace/MyDebug.h"
#include "tests/Publishing/trace/TracingProcess.h"

namespace publishing::MyDebug {
namespace {

const struct Circle {
} kCircle;

std::chrono::system_clock::time_point at(const char* utc) {
  std::tm time{};
  EXPECT_NE(::strptime(utc, "%Y-%m-%d %H:%M:%S", &time), nullptr);
  return std::chrono::system_clock::from_time_t(::timegm(&time));
}

TEST(LogFilePath, NamesTheWeeksYearInLocaleAndZone) {
  struct Case {
    const char* locale;
    const char* zone;
    const char* utc;
    const char* date;
  };
  const std::vector<Case> cases = {
      {"en_US", "UTC", "2010-03-05 14:07:09", "2010.03.05-14.07.09"},
      {"en_US", "America/New_York", "2010-03-05 19:07:09", "2010.03.05-14.07.09"},
      // Weeks begin on Monday and belong to the year of their Thursday.
      {"de_DE", "UTC", "2010-01-03 00:00:00", "2009.01.03-00.00.00"},
      {"de_DE", "UTC", "2010-01-04 00:00:00", "2010.01.04-00.00.00"},
      {"de_DE", "UTC", "2012-12-31 23:59:59", "2013.12.31-23.59.59"},
      // Weeks begin on Sunday and belong to the year in which they end.
      {"en_US", "UTC", "2010-01-01 00:00:00", "2010.01.01-00.00.00"},
      {"en_US", "UTC", "2010-12-25 12:00:00", "2010.12.25-12.00.00"},
      {"en_US", "UTC", "2010-12-26 12:00:00", "2011.12.26-12.00.00"},
      {"en_US", "Asia/Tokyo", "2010-12-25 15:00:00", "2011.12.26-00.00.00"}};
  for (const Case& tried : cases) {
    EXPECT_EQ(inOwnProcess([&tried] {
                UErrorCode status = U_ZERO_ERROR;
                icu::Locale::setDefault(icu::Locale(tried.locale), status);
                icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone(tried.zone));
                return logFilePath(at(tried.utc));
              }),
              std::string("/tmp/com.zephrel.pde.VTAccountID.log_") + tried.date + ".txt")
        << tried.locale << ' ' << tried.zone << ' ' << tried.utc;
  }
}

// The path of a file that does not exist until the first line is written, or what went wrong.
std::string pathSetUp() {
  setClockOfThisProcess();
  const auto before = std::chrono::system_clock::now();
  if (openLogFile()) return "opened without a name";
  _debugSetup();
  const auto after = std::chrono::system_clock::now();
  if (std::filesystem::exists(logFilePath(before)) || std::filesystem::exists(logFilePath(after))) {
    return "set-up made the file";
  }
  const LogFile file = openLogFile();
  const std::string path = pathOf(file);
  std::filesystem::remove(path);
  return path == logFilePath(before) || path == logFilePath(after) ? "right path" : path;
}

TEST(LogFile, IsNamedByTheSetUpAndMadeByTheFirstLine) {
  EXPECT_EQ(inOwnProcess(pathSetUp), "right path");
}

TEST(LogFile, KeepsItsNameForTheLifeOfTheProcess) {
  EXPECT_EQ(traced([] {
              _debugLog(kCircle, "before");
              icu::TimeZone::adoptDefault(new icu::SimpleTimeZone(-INT_MAX / 100, u"Moved"));
              _debugSetup();
              _debugLog(kCircle, "after");
            }),
            "Circle\t(null) before\nCircle\t(null) after\n");
}

std::string modeUnderUmask(mode_t mask) {
  return inOwnProcess([mask] {
    setClockOfThisProcess();
    ::umask(mask);
    _debugLog(kCircle, "x");
    const LogFile file = openLogFile();
    struct stat status {};
    ::fstat(file.descriptor(), &status);
    std::filesystem::remove(pathOf(file));
    return std::to_string(status.st_mode & 0777U);
  });
}

TEST(LogFile, HasTheModeThatTheUmaskLeaves) {
  EXPECT_EQ(modeUnderUmask(0), std::to_string(0666));
  EXPECT_EQ(modeUnderUmask(0027), std::to_string(0640));
}

TEST(LogFile, IsClosedAfterEachLine) {
  EXPECT_EQ(traced([] {
              const int lowestFree = ::dup(0);
              ::close(lowestFree);
              for (int line = 0; line < 100; ++line)
                _debugLog(kCircle, "%d", line);
              const int stillFree = ::dup(0);
              ::close(stillFree);
              std::filesystem::resize_file(pathOf(openLogFile()), 0);
              _debugLog(kCircle, stillFree == lowestFree ? "closed" : "left open");
            }),
            "Circle\t(null) closed\n");
}

TEST(LogFile, HasTheLinesOfStaticDestructorsToo) {
  struct TracesItsEnd {
    ~TracesItsEnd() {
      _debugEpilog(kCircle, "%@", "the last line of a log whose name is on the heap");
      const LogFile file = openLogFile();
      std::filesystem::remove(pathOf(file));
      const std::string text = readAll(file.descriptor());
      std::ignore = ::write(descriptor, text.data(), text.size());
    }
    int descriptor;
  };
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  inOwnProcess([&ends]() -> std::string {
    setClockOfThisProcess();
    static const TracesItsEnd last{ends[1]};  // made before the log, so it goes after it
    increaseIndent();
    _debugLog(kCircle, "first");
    return {};
  });
  ::close(ends[1]);
  EXPECT_EQ(readAll(ends[0]),
            "Circle\t   first\n"
            "Circle\t   END the last line of a log whose name is on the heap\n");
  ::close(ends[0]);
}

TEST(LogFile, BelongsToOneObjectWhenMoved) {
  LogFile first(::open("/dev/null", O_RDONLY));
  const int descriptor = first.descriptor();
  LogFile second(std::move(first));
  EXPECT_EQ(second.descriptor(), descriptor);
  EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): what it is left with
  LogFile third(-1);
  third = std::move(second);
  EXPECT_EQ(third.descriptor(), descriptor);
  EXPECT_FALSE(second);  // NOLINT(bugprone-use-after-move)
}

void limit(int resource, rlim_t most) {
  rlimit limits{};
  ::getrlimit(static_cast<__rlimit_resource_t>(resource), &limits);
  limits.rlim_cur = most;
  ::setrlimit(static_cast<__rlimit_resource_t>(resource), &limits);
}

TEST(LogFile, ThatCannotBeOpenedLosesTheLineAndIsTriedAgain) {
  EXPECT_EQ(traced([] {
              ::testing::internal::CaptureStderr();
              _debugSetup();
              limit(RLIMIT_NOFILE, 0);
              _debugLog(kCircle, "lost");
              limit(RLIMIT_NOFILE, 100);
              _debugLog(kCircle, "said: \"%@\"", ::testing::internal::GetCapturedStderr());
            }),
            "Circle\t(null) said: \"\"\n");
}

TEST(LogFile, ThatCannotBeWrittenLosesTheLine) {
  EXPECT_EQ(traced([] {
              std::signal(SIGXFSZ, SIG_IGN);
              _debugSetup();
              limit(RLIMIT_FSIZE, 0);
              _debugLog(kCircle, "lost");
              limit(RLIMIT_FSIZE, 1 << 20);
              _debugLog(kCircle, "written");
            }),
            "Circle\t(null) written\n");
}

// A pipe in place of the log file, slow to take what is written.
int slowPipe = -1;
std::string taken;

// Called by a timer while a line is being written. Empties the pipe at every third look at which it
// is full; the looks before interrupt a write, first with a part of its bytes written, then with
// none.
void takeSlowly(int /*signal*/) {
  static int looks = 0;
  int waiting = 0;
  ::ioctl(slowPipe, FIONREAD, &waiting);
  if (waiting < ::fcntl(slowPipe, F_GETPIPE_SZ) || ++looks % 3 != 0) return;
  const std::size_t before = taken.size();
  taken.resize(before + static_cast<std::size_t>(waiting));
  const ssize_t got = ::read(slowPipe, &taken[before], static_cast<std::size_t>(waiting));
  taken.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
}

TEST(LogFile, GetsTheWholeLineThoughSignalsInterruptTheWriting) {
  const std::string message(200'000, 'x');
  EXPECT_EQ(inOwnProcess([&message]() -> std::string {
              setClockOfThisProcess();
              _debugSetup();
              const std::string path = pathOf(openLogFile());
              std::filesystem::remove(path);
              ::mkfifo(path.c_str(), 0600);
              slowPipe = ::open(path.c_str(), O_RDWR | O_NONBLOCK);
              taken.reserve(2 * message.size());  // a signal handler must not allocate

              struct sigaction action {};
              action.sa_handler = &takeSlowly;  // without SA_RESTART
              ::sigaction(SIGALRM, &action, nullptr);
              constexpr itimerval kEveryMillisecond = {{0, 1000}, {0, 1000}};
              ::setitimer(ITIMER_REAL, &kEveryMillisecond, nullptr);
              _debugLog(kCircle, "%@", message);
              constexpr itimerval kNever{};
              ::setitimer(ITIMER_REAL, &kNever, nullptr);

              std::filesystem::remove(path);
              taken += readAll(slowPipe);
              return taken == "Circle\t(null) " + message + "\n" ? "whole" : "of another size";
            }),
            "whole");
}

TEST(LogFile, OnDescriptorZeroIsClosedToo) {
  EXPECT_EQ(inOwnProcess([] {
              ::dup2(1, 0);
              { const LogFile zero(0); }
              return ::fcntl(0, F_GETFD) < 0 ? "closed" : "left open";
            }),
            "closed");
}

TEST(LogFile, IsClosedByItsOwnerOnly) {
  LogFile first(::dup(0));
  const int descriptor = first.descriptor();
  {
    LogFile second(std::move(first));
    EXPECT_EQ(second.descriptor(), descriptor);
    LogFile third(-1);
    EXPECT_FALSE(third);
    third = std::move(second);
    EXPECT_TRUE(third);
  }
  EXPECT_LT(::fcntl(descriptor, F_GETFD), 0);
}

}  // namespace
}  // namespace publishing::MyDebug
