// SPDX-License-Identifier: Apache-2.0
// What goes wrong on the way to the printer. Every unit of printing/ throws PrintError and nothing
// else of its own; none lets it pass through the panel, which knows no exceptions.
#pragma once

#include <stdexcept>
#include <string>

namespace publishing {

class PrintError : public std::runtime_error {
 public:
  enum class Kind {
    Refused,  // by the rules of the job or of the printer: the user changes the job
    Usage,    // the caller asked for something that makes no sense
    Trouble,  // print server or file trouble: the user fixes something outside the job
  };

  // `message` is for the user: it names the thing and the remedy, in one or more lines.
  PrintError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

  static PrintError refused(const std::string& message) { return {Kind::Refused, message}; }
  static PrintError usage(const std::string& message) { return {Kind::Usage, message}; }
  static PrintError trouble(const std::string& message) { return {Kind::Trouble, message}; }

  [[nodiscard]] Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

}  // namespace publishing
