// SPDX-License-Identifier: Apache-2.0
#include "Publishing/trace/MyDebug.h"

#include <cerrno>
#include <cstdlib>
#include <memory>

#include <cxxabi.h>
#include <fcntl.h>
#include <unicode/smpdtfmt.h>
#include <unistd.h>

#include "Publishing/trace/NextStepEncoding.h"

namespace publishing::MyDebug {
namespace {

constexpr const char* kLogPath = "/tmp/com.zephrel.pde.VTAccountID.log_";
constexpr const char16_t* kLogDatePattern = u"YYYY'.'MM'.'dd'-'HH'.'mm'.'ss";
constexpr std::size_t kIndentWidth = 2;

struct Log {
  bool firstTime = true;
  std::optional<std::string> logFileName;
  std::optional<std::string> indent;
};

// Never destroyed, so that static objects can trace their own end.
Log& theLog() {
  static Log& log = *new Log;
  return log;
}

template <typename... Arguments>
std::string formatted(std::string_view format, const Arguments&... arguments) {
  return traceFormat(format, std::array{traceArgument(arguments)...});
}

// The name after the namespaces and functions that it stands in; those inside of template arguments
// stay.
std::string withoutScopes(const std::string& name) {
  std::size_t begin = 0;
  int depth = 0;
  for (std::size_t index = 0; index < name.size(); ++index) {
    if (name[index] == '<' || name[index] == '(') ++depth;
    if (name[index] == '>' || name[index] == ')') --depth;
    if (depth == 0 && name.compare(index, 2, "::") == 0) begin = index + 2;
  }
  return name.substr(begin);
}

void writeAll(const LogFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.descriptor(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

// The message becomes the format of the line: it is formatted once more.
void logMessage(const TracedObject& object, std::string_view word, std::string_view format,
                std::span<const TraceArgument> arguments) {
  const std::string message = traceFormat(format, arguments);
  _debugLog(object, formatted(word, message));
}

}  // namespace

std::optional<std::string> TracedObject::className() const {
  if (type_ == nullptr) return std::nullopt;
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> demangled(
      abi::__cxa_demangle(type_->name(), nullptr, nullptr, &status), &std::free);
  return withoutScopes(demangled != nullptr ? demangled.get() : type_->name());
}

LogFile::~LogFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::string logFilePath(std::chrono::system_clock::time_point time) {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  UErrorCode status = U_ZERO_ERROR;
  const icu::SimpleDateFormat format(kLogDatePattern, status);
  icu::UnicodeString date;
  if (U_SUCCESS(status)) format.format(Milliseconds(time.time_since_epoch()).count(), date);
  std::string path = kLogPath;
  date.toUTF8String(path);
  return path + ".txt";
}

void _debugSetup() {
  if (!theLog().firstTime) return;
  theLog().firstTime = false;
  theLog().logFileName = logFilePath(std::chrono::system_clock::now());
}

LogFile openLogFile() {
  const auto& path = theLog().logFileName;
  if (!path) return LogFile(-1);
  return LogFile(::open(path->c_str(), O_RDWR | O_CREAT | O_APPEND, 0666));
}

void increaseIndent() {
  theLog().indent = theLog().indent.value_or("") + std::string(kIndentWidth, ' ');
}

void decreaseIndent() {
  auto& indent = theLog().indent;
  if (!indent) return;
  indent->resize(indent->size() > kIndentWidth ? indent->size() - kIndentWidth : 0);
}

void log(const TracedObject& object, std::string_view format,
         std::span<const TraceArgument> arguments) {
  if (!theLog().logFileName) _debugSetup();
  const LogFile file = openLogFile();
  if (!file) return;
  ::lseek(file.descriptor(), 0, SEEK_END);
  const std::string prefix = formatted("%@\t%@", object.className(), theLog().indent);
  const std::string line = formatted("%@ %@\n", prefix, traceFormat(format, arguments));
  if (const auto bytes = nextStepBytes(line)) writeAll(file, *bytes);
}

void prolog(const TracedObject& object, std::string_view format,
            std::span<const TraceArgument> arguments) {
  increaseIndent();
  logMessage(object, "BEGIN %@", format, arguments);
}

void error(const TracedObject& object, std::string_view format,
           std::span<const TraceArgument> arguments) {
  logMessage(object, "ERROR %@", format, arguments);
}

void epilog(const TracedObject& object, std::string_view format,
            std::span<const TraceArgument> arguments) {
  logMessage(object, "END %@", format, arguments);
  decreaseIndent();
}

void _debugException(const TracedObject& object, const TracedException& exception) {
  increaseIndent();
  _debugLog(object, "EXCEPTION");
  if (exception.name) _debugLog(object, "name: %@", *exception.name);
  if (exception.reason) _debugLog(object, "reason: %@", *exception.reason);
  if (exception.userInfo && !exception.userInfo->empty()) {
    _debugLog(object, "user info:");
    increaseIndent();
    for (const auto& [key, value] : *exception.userInfo)
      _debugLog(object, "%@", value);
    decreaseIndent();
  }
  decreaseIndent();
}

}  // namespace publishing::MyDebug
