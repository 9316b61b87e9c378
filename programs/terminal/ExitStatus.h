// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "printing/PrintError.h"

namespace publishing {

// What a program answers to the shell that called it.
enum ExitStatus : int {
  kDone = 0,
  kRefused = 1,     // the panel or the printer refused; a message says what
  kWrongUsage = 2,  // the command line was wrong
  kTrouble = 3,     // trouble with the print server or a file
};

inline ExitStatus exitStatusOf(PrintError::Kind kind) {
  switch (kind) {
    case PrintError::Kind::Refused:
      return kRefused;
    case PrintError::Kind::Usage:
      return kWrongUsage;
    case PrintError::Kind::Trouble:
      break;
  }
  return kTrouble;
}

}  // namespace publishing
