#pragma once

namespace publishing {

// What the program answers to the shell that called it.
enum ExitStatus : int {
  kDone = 0,
  kRefused = 1,     // the panel or the printer refused; a message says what
  kWrongUsage = 2,  // the command line was wrong
  kTrouble = 3,     // trouble with the print server or a file
};

}  // namespace publishing
