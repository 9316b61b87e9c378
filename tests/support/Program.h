// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace publishing {

// What a program that was run to its end left behind.
struct Outcome {
  int status = -1;  // exit status; -1 when it was ended by a signal
  std::string output;
  std::string errors;
  int signal = 0;  // by which it was ended
};

// Runs a program without standard input, in the folder of the sources. The environment is that of
// the test with `environment` over it, in the language "C.UTF-8".
Outcome runProgram(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment = {});

// The same for a program that runs beside the test. It is killed when the object goes.
class RunningProgram {
 public:
  explicit RunningProgram(const std::vector<std::string>& command,
                          const std::map<std::string, std::string>& environment = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  [[nodiscard]] int process() const { return process_; }

  // Whether its standard error came to have that text before the program ended.
  [[nodiscard]] bool saidError(const std::string& text);

  void signal(int number) const;

  // Waits until it has ended; to be called once.
  Outcome finish();

 private:
  [[nodiscard]] bool hasEnded();

  TemporaryFolder folder_;
  int process_ = 0;
  int waitStatus_ = 0;
  bool ended_ = false;
};

}  // namespace publishing
