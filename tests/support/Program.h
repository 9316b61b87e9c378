// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <vector>

namespace publishing {

// What a program that was run to its end left behind.
struct Outcome {
  int status = -1;  // exit status; -1 when it was ended by a signal
  std::string output;
  std::string errors;
};

// Runs a program without standard input, in the folder of the sources. The environment is that of
// the test with `environment` over it, in the language "C.UTF-8".
Outcome runProgram(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment = {});

}  // namespace publishing
