#include "Publishing/MyDebug.h"

#include <algorithm>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unicode/locid.h>
#include <unicode/simpletz.h>
#include <unistd.h>

// The module's state belongs to a process: every test traces in a process of its own.

namespace {
struct Unscoped {};
}  // namespace

namespace publishing::MyDebug {
namespace {

struct Shape {
  virtual ~Shape() = default;
};
struct Circle : Shape {};
template <typename T>
struct Box {
  struct Lid {};
};
const Circle kCircle;

std::string readAll(int descriptor) {
  std::string bytes(1 << 16, '\0');
  std::string all;
  for (ssize_t got = 0; (got = ::read(descriptor, bytes.data(), bytes.size())) > 0;) {
    all.append(bytes, 0, static_cast<std::size_t>(got));
  }
  return all;
}

std::string pathOf(const LogFile& file) {
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file.descriptor()));
}

// A clock of its own for each process: no two of them name their logs alike.
void setClockOfThisProcess() {
  icu::TimeZone::adoptDefault(new icu::SimpleTimeZone(getpid() % 40000 * 1000, u"Test"));
}

// What `answer` gives in a process of its own.
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

// What the log of a new process holds after `trace`; "no file" when there is none.
std::string traced(const std::function<void()>& trace) {
  return inOwnProcess([&trace]() -> std::string {
    setClockOfThisProcess();
    trace();
    _debugSetup();
    const LogFile file = openLogFile();
    if (!file) return "no file";
    std::filesystem::remove(pathOf(file));
    return readAll(file.descriptor());
  });
}

TEST(TraceLine, HasClassTabIndentationBlankAndMessage) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              _debugLog(kCircle, "%d %@ of %s", 3, "sheets", std::string("Tray2"));
            }),
            "Circle\t   3 sheets of Tray2\n");
}

TEST(TraceLine, ReadsNullBeforeTheFirstIndentation) {
  EXPECT_EQ(traced([] { _debugError(kCircle, "lost"); }), "Circle\t(null) ERROR lost\n");
  EXPECT_EQ(traced([] { _debugLog(kCircle, "plain"); }), "Circle\t(null) plain\n");
}

TEST(TraceLine, IsAppendedToTheOneFileOfTheProcess) {
  EXPECT_EQ(traced([] {
              _debugLog(kCircle, "one");
              _debugLog(kCircle, "two");
              _debugLog(kCircle, "three");
            }),
            "Circle\t(null) one\nCircle\t(null) two\nCircle\t(null) three\n");
}

TEST(TraceLine, IsInNextStepEncoding) {
  EXPECT_EQ(traced([] { _debugLog(kCircle, "Größe – ½"); }),
            "Circle\t(null) Gr\xf0\xfb"
            "e \xb1 \xd3\n");
}

TEST(TraceLine, WithAForeignCharacterIsNotWritten) {
  EXPECT_EQ(traced([] {
              _debugLog(kCircle, "before");
              _debugLog(kCircle, "price: 5 €");
              _debugLog(kCircle, "\xff");
              _debugLog(kCircle, "after");
            }),
            "Circle\t(null) before\nCircle\t(null) after\n");
}

TEST(TracedClass, IsTheObjectsOwnWithoutNamespace) {
  struct Local {};
  const Shape& shape = kCircle;
  const Shape* none = nullptr;
  const std::vector<std::pair<TracedObject, std::optional<std::string>>> cases = {
      {kCircle, "Circle"}, {shape, "Circle"},    {&kCircle, "Circle"},
      {&shape, "Circle"},  {none, std::nullopt}, {nullptr, std::nullopt},
      {Local(), "Local"},  {7, "int"},           {LogFile(-1), "LogFile"}};
  for (const auto& [object, name] : cases)
    EXPECT_EQ(object.className(), name);
  EXPECT_EQ(TracedObject(Box<int>()).className(), "Box<int>");
  EXPECT_EQ(TracedObject(Box<int>::Lid()).className(), "Lid");
  EXPECT_EQ(TracedObject(Unscoped()).className(), "Unscoped");
  EXPECT_EQ(TracedObject(Box<icu::Locale>()).className()->substr(0, 8), "Box<icu_");
}

TEST(TracedClass, OfNoObjectReadsNull) {
  EXPECT_EQ(traced([] { _debugLog(nullptr, "x"); }), "(null)\t(null) x\n");
}

TEST(TraceIndentation, EnclosesBeginAndEnd) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "around");
              _debugProlog(kCircle, "draw %d", 5);
              _debugError(kCircle, "no ink");
              _debugEpilog(kCircle, "draw");
              _debugLog(kCircle, "around");
            }),
            "Circle\t around\n"
            "Circle\t   BEGIN draw 5\n"
            "Circle\t   ERROR no ink\n"
            "Circle\t   END draw\n"
            "Circle\t around\n");
}

TEST(TraceIndentation, OfTwoBlanksDecreasesToNothingNotNull) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "x");
            }),
            "Circle\t x\n");
}

TEST(TraceIndentation, StaysUnsetWhenDecreasedFirst) {
  EXPECT_EQ(traced([] {
              decreaseIndent();
              _debugLog(kCircle, "x");
            }),
            "Circle\t(null) x\n");
}

TEST(TraceIndentation, NeverFallsBelowNone) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              decreaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "none");
              increaseIndent();
              increaseIndent();
              _debugLog(kCircle, "two levels");
              decreaseIndent();
              _debugLog(kCircle, "one level");
            }),
            "Circle\t none\nCircle\t     two levels\nCircle\t   one level\n");
}

TEST(TraceIndentation, BelongsToTheProcessNotTheObject) {
  EXPECT_EQ(traced([] {
              _debugProlog(kCircle, "a");
              _debugLog(Box<int>(), "b");
            }),
            "Circle\t   BEGIN a\nBox<int>\t   b\n");
}

TEST(TracedText, OfTheWrappersIsFormattedTwice) {
  struct Case {
    std::string message, written;
  };
  const std::vector<Case> cases = {{"50%%", "50%"},    {"%d", "%d"},  {"%s%s%s", "%s%s%s"},
                                   {"%n", "%n"},       {"%@", "%@"},  {"100%", "100%"},
                                   {"%", "%"},         {"%%d", "%d"}, {"%%%%", "%%"},
                                   {"%999d", "%999d"}, {"%*d", "%*d"}};
  for (const auto& [message, written] : cases) {
    EXPECT_EQ(traced([&text = message] {
                _debugProlog(kCircle, "%@", text);
                _debugError(kCircle, "%s", text);
                _debugEpilog(kCircle, "%@", text);
              }),
              "Circle\t   BEGIN " + written + "\nCircle\t   ERROR " + written +
                  "\nCircle\t   END " + written + "\n");
  }
}

TEST(TracedText, OfAPlainLineIsFormattedOnce) {
  EXPECT_EQ(traced([] { _debugLog(kCircle, "%@ %%", "50%% %d"); }), "Circle\t(null) 50%% %d %\n");
}

TEST(TracedException, WritesNameReasonAndTheValuesOfItsInfo) {
  EXPECT_EQ(traced([] {
              _debugException(kCircle, {.name = "RangeError",
                                        .reason = "100% of %d",
                                        .userInfo = {{{"first", "one"}, {"second", "%s"}}}});
              _debugLog(kCircle, "after");
            }),
            "Circle\t   EXCEPTION\n"
            "Circle\t   name: RangeError\n"
            "Circle\t   reason: 100% of %d\n"
            "Circle\t   user info:\n"
            "Circle\t     one\n"
            "Circle\t     %s\n"
            "Circle\t after\n");
}

TEST(TracedException, WithoutReasonAndWithEmptyInfoHasTwoLines) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              _debugException(kCircle,
                              {.name = "RangeError", .reason = std::nullopt, .userInfo = {{}}});
            }),
            "Circle\t     EXCEPTION\nCircle\t     name: RangeError\n");
}

TEST(TracedException, WithNothingHasOneLine) {
  EXPECT_EQ(traced([] { _debugException(kCircle, {}); }), "Circle\t   EXCEPTION\n");
}

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
