// SPDX-License-Identifier: Apache-2.0
// Trace log: indented lines in one file a process,
// /tmp/com.zephrel.pde.VTAccountID.log_<time of the first line>.txt. Nothing in the panel calls it;
// it is there for whoever looks for a fault.
//
// A line is the class name of the traced object, a tab, the indentation ("(null)" until it was
// first changed), a blank, the message and a line feed, in the 8-bit NeXTSTEP encoding. A line with
// a character outside that encoding is not written. Each line opens the file, appends and closes it
// again; a file that cannot be opened or written loses the line silently.
//
// Formats and their arguments: see traceFormat. Indentation and file name belong to the process and
// have no lock: trace from one thread at a time.
#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "Publishing/trace/TraceFormat.h"

namespace publishing::MyDebug {

// The object that traces itself, for its class name: any object, or a pointer to one. A base class
// with virtual functions gives the name of the object's own class.
class TracedObject {
 public:
  template <typename T>
  TracedObject(const T& object) {  // NOLINT(google-explicit-constructor): made on the way in
    if constexpr (std::is_same_v<T, std::nullptr_t>) {
      return;
    } else if constexpr (std::is_pointer_v<T>) {
      if (object != nullptr) type_ = &typeid(*object);
    } else {
      type_ = &typeid(object);
    }
  }

  // Without namespaces; nothing for a null pointer.
  [[nodiscard]] std::optional<std::string> className() const;

 private:
  const std::type_info* type_ = nullptr;
};

struct TracedException {
  std::optional<std::string> name;
  std::optional<std::string> reason;
  std::optional<std::vector<std::pair<std::string, std::string>>> userInfo;  // key, value
};

// An open log file, closed with the object.
class LogFile {
 public:
  explicit LogFile(int descriptor) : descriptor_(descriptor) {}
  LogFile(LogFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  LogFile& operator=(LogFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~LogFile();

  // -1 when the file could not be opened.
  [[nodiscard]] int descriptor() const { return descriptor_; }
  explicit operator bool() const { return descriptor_ >= 0; }

 private:
  int descriptor_;
};

// The log file of a process that writes its first line at `time`. Current locale and time zone; the
// year is the one that the week belongs to and may differ from the calendar's around New Year.
std::string logFilePath(std::chrono::system_clock::time_point time);

// Fixes the file's name, once a process. The file is not touched.
void _debugSetup();

// Opens the log file for appending, creating it if need be. Fails before _debugSetup.
LogFile openLogFile();

// Two blanks more, two blanks less; never less than none.
void increaseIndent();
void decreaseIndent();

// What the functions below do, with their arguments collected.
void log(const TracedObject& object, std::string_view format,
         std::span<const TraceArgument> arguments);
void prolog(const TracedObject& object, std::string_view format,
            std::span<const TraceArgument> arguments);
void error(const TracedObject& object, std::string_view format,
           std::span<const TraceArgument> arguments);
void epilog(const TracedObject& object, std::string_view format,
            std::span<const TraceArgument> arguments);

// Writes one line.
template <typename... Arguments>
void _debugLog(const TracedObject& object, std::string_view format, const Arguments&... arguments) {
  log(object, format, std::array<TraceArgument, sizeof...(arguments)>{traceArgument(arguments)...});
}

// A method begins, fails, ends: "BEGIN ...", "ERROR ...", "END ...". Begin and end enclose their
// lines in one more level of indentation. The message is formatted a second time, without
// arguments, when the line is written: "%%" in it ends as "%", other conversions stay.
template <typename... Arguments>
void _debugProlog(const TracedObject& object, std::string_view format,
                  const Arguments&... arguments) {
  prolog(object, format,
         std::array<TraceArgument, sizeof...(arguments)>{traceArgument(arguments)...});
}

template <typename... Arguments>
void _debugError(const TracedObject& object, std::string_view format,
                 const Arguments&... arguments) {
  error(object, format,
        std::array<TraceArgument, sizeof...(arguments)>{traceArgument(arguments)...});
}

template <typename... Arguments>
void _debugEpilog(const TracedObject& object, std::string_view format,
                  const Arguments&... arguments) {
  epilog(object, format,
         std::array<TraceArgument, sizeof...(arguments)>{traceArgument(arguments)...});
}

// Writes an exception as an indented block: name and reason when present, then the values of the
// user info without their keys.
void _debugException(const TracedObject& object, const TracedException& exception);

}  // namespace publishing::MyDebug
