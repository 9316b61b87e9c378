// What goes wrong on the way to the printer. Every unit of printing/ throws PrintError and nothing
// else of its own; none lets it pass through the panel, which knows no exceptions.
#pragma once

#include <stdexcept>
#include <string>

namespace publishing {

class PrintError : public std::runtime_error {
 public:
  // The values are the exit statuses of the command line.
  enum class Kind {
    Refused = 1,  // by the rules of the job or of the printer: the user changes the job
    Usage = 2,    // the caller asked for something that makes no sense
    Trouble = 3,  // print server or file trouble: the user mends something outside the job
  };

  // `message` is for the user: it names the thing and the remedy, in one or more lines.
  PrintError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

  [[nodiscard]] Kind kind() const { return kind_; }
  [[nodiscard]] int exitStatus() const { return static_cast<int>(kind_); }

 private:
  Kind kind_;
};

}  // namespace publishing
